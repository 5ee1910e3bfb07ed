#include <algorithm>
#include <optional>
#include <string>

#include "config/ConfigurationReader.h"
#include "config/LegacyConfigurationReader.h"
#include "config/RecordMark.h"
#include "config/oTarnParameters.h"

/// Tells what a configuration file is and hands it to the reader of its version.
namespace tarnlog {

namespace {

TarnError loadError(const std::string& description) {
  return {1, "LoadXmlConfiguration load error", description};
}

/// Why the file cannot be read, with the place when it is known.
TarnError notReadable(const std::string& fileName, const XmlParseError& error) {
  std::string place;
  if (error.line != 0)
    place = ", Line : " + std::to_string(error.line) + ", LinePos : " + std::to_string(error.position);
  return loadError("File : " + fileName + place + ", Reason : " + error.reason);
}

std::string bytesOf(const FileSystem& files, const std::string& fileName) {
  try {
    return files.readAll(fileName);
  } catch (const TarnError& error) {
    // The file system's text begins with the file, which stands in this one already.
    const std::string prefix = fileName + ": ";
    const std::string& text = error.description();
    throw notReadable(fileName, {0, 0, text.rfind(prefix, 0) == 0 ? text.substr(prefix.size()) : text});
  }
}

}  // namespace

void oTarnParameters::LoadXmlConfiguration(const FileSystem& files, const std::string& fileName,
                                           const SessionDocument& session, LoadReport* report) {
  XmlDocument document;
  if (const auto error = document.parse(bytesOf(files, fileName))) throw notReadable(fileName, *error);
  const XmlElement root = document.documentNode().firstChild("Tarnlog2000");
  if (!root) throw loadError("the file " + fileName + " is not a Tarnlog file");
  if (report != nullptr)
    report->record = root.firstChild("row") || describesRecord(root.firstChild("Description").text());
  std::string version(root.attributeOrEmpty("Version"));
  std::replace(version.begin(), version.end(), ',', '.');
  if (version == "2.0")
    ReadXmlParameters(*this, root, session, report);
  else if (version == "1.0")
    ReadXmlConfigV1(*this, root, session, report);
  else
    throw loadError("File " + fileName + " : Unknown Tarnlog version (" + version + ")");
}

}  // namespace tarnlog
