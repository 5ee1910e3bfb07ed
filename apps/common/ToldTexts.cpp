#include "apps/common/ToldTexts.h"

#include <cstdio>
#include <memory>
#include <string_view>
#include <unordered_map>

#include "apps/common/TerminalText.h"
#include "apps/common/UserLanguages.h"
#include "platform/base/TarnError.h"
#include "platform/files/SystemFileSystem.h"
#include "platform/xml/XmlDocument.h"

namespace tarnlog {

namespace {

struct Hash {
  using is_transparent = void;
  std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
};
using Texts = std::unordered_map<std::string, std::string, Hash, std::equal_to<>>;

void addTexts(Texts& texts, XmlElement context) {
  for (XmlElement message = context.firstChild("message"); message;
       message = message.nextSibling("message")) {
    const XmlElement translation = message.firstChild("translation");
    if (!translation.attribute("type"))  // "unfinished", "vanished" or "obsolete"
      texts.emplace(message.firstChild("source").text(), translation.text());
  }
}

Texts textsIn(const std::string& path) {
  const SystemFileSystem files;
  XmlDocument document;
  if (const auto error = document.parse(files.readAll(path)))
    throw TarnError(1, "ToldTexts", path + ": line " + std::to_string(error->line) + ": " + error->reason);
  const XmlElement root = document.documentNode().firstChild("TS");
  if (!root) throw TarnError(1, "ToldTexts", path + ": expected the root element TS");
  Texts texts;
  for (XmlElement context = root.firstChild("context"); context; context = context.nextSibling("context"))
    if (context.firstChild("name").text() == "Told") addTexts(texts, context);
  return texts;
}

}  // namespace

Told::Translator readToldTexts(const std::string& path) {
  return [texts = std::make_shared<const Texts>(textsIn(path))](const char* source) {
    const auto found = texts->find(std::string_view(source));
    return found == texts->end() ? std::string() : found->second;
  };
}

void tellInUsersLanguage(const char* program) {
  const std::string folder = translationsFolder(TARNLOG_TRANSLATIONS, TARNLOG_SOURCE_TRANSLATIONS);
  const auto language = languageWithTexts(userLanguages(), folder, "tarn-record", ".ts");
  if (!language) return;
  try {
    Told::setTranslator(readToldTexts(folder + "/tarn-record_" + *language + ".ts"));
  } catch (const TarnError& error) {
    std::fprintf(stderr, "%s: %s\n", program, printableText(error.description()).c_str());
  }
}

}  // namespace tarnlog
