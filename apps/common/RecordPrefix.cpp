#include "apps/common/RecordPrefix.h"

#include <string_view>

#include "platform/base/TarnError.h"
#include "platform/text/TakeUntil.h"
#include "platform/text/Told.h"
#include "platform/xml/XmlDocument.h"

namespace tarnlog {

namespace {

bool leadsOut(std::string_view prefix) {
  if (prefix.starts_with('/')) return true;
  while (prefix.find('/') != std::string_view::npos)
    if (takeUntil(prefix, '/') == "..") return true;
  return false;
}

}  // namespace

void refusePrefixOutside(const std::string& configuration, const std::string& prefix) {
  if (leadsOut(prefix))
    throw TarnError(
        1, "configuration",
        Told::tr("{}: Parameters/Recording/File: prefix=\"{}\": expected one that stays in the folder of "
                 "the record files",
                 configuration, prefix));
}

void refusePrefixOutside(const FileSystem& files, const std::string& configuration) {
  XmlDocument document;
  if (!skipOnFailure([&] { static_cast<void>(document.parse(files.readAll(configuration))); })) return;
  const XmlElement file = document.selectSingleNode("Tarnlog2000/Parameters/Recording/File");
  refusePrefixOutside(configuration, std::string(file.attributeOrEmpty("prefix")));
}

}  // namespace tarnlog
