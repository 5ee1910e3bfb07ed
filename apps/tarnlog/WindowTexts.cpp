#include "apps/tarnlog/WindowTexts.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <cstdio>

#include "apps/common/UserLanguages.h"
#include "platform/text/Told.h"
#include "ui/common/Convert.h"

namespace tarnlog {

WindowTexts::WindowTexts()
    : WindowTexts(userLanguages(), translationsFolder(TARNLOG_TRANSLATIONS, TARNLOG_BUILT_TRANSLATIONS)) {}

WindowTexts::WindowTexts(const std::vector<std::string>& languages, const std::string& folder) {
  const auto found = languageWithTexts(languages, folder, "tarnlog", ".qm");
  if (!found) return;
  language_ = *found;
  read(screens_, folder + "/tarnlog_" + language_ + ".qm");
  read(told_, folder + "/tarn-record_" + language_ + ".qm");
  Told::setTranslator([this](const char* source) {
    const QString own = screens_.translate("Told", source);
    return fromQString(own.isEmpty() ? told_.translate("Told", source) : own);
  });
}

WindowTexts::~WindowTexts() { Told::setTranslator({}); }

void WindowTexts::read(QTranslator& translator, const std::string& path) {
  if (!translator.load(toQString(path)))
    std::fprintf(stderr, "tarnlog: %s: cannot be read, its texts are told in English\n", path.c_str());
}

/// The toolkit has them only where its package of translations is installed.
void WindowTexts::install() {
  if (language_.empty()) return;
  if (toolkit_.load("qtbase_" + toQString(language_), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QCoreApplication::installTranslator(&toolkit_);
  QCoreApplication::installTranslator(&told_);
  QCoreApplication::installTranslator(&screens_);
}

}  // namespace tarnlog
