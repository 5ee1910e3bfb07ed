#pragma once

#include <string>

#include "platform/text/Told.h"

namespace tarnlog {

/// The translations of context "Told" in a .ts file, those that are finished. Raises a TarnError when it
/// cannot be read.
Told::Translator readToldTexts(const std::string& path);

/// From now on texts are told in the user's language where there are texts in it: for programs without a
/// toolkit, once, before anything is told. Texts that cannot be read are told of on standard error, where
/// `program` is who says so.
void tellInUsersLanguage(const char* program);

}  // namespace tarnlog
