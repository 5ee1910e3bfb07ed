#pragma once

#include <QString>
#include <string_view>

/// The system's words in the user's language.
namespace tarnlog {

QString inUsersWords(std::string_view text);

}  // namespace tarnlog
