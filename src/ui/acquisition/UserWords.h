#pragma once

#include <QString>
#include <string_view>

/// The recorder's fixed words in the user's language. Texts that are none of them stay as they are.
namespace tarnlog {

QString inUsersWords(std::string_view text);
/// Of a text that may begin with this word, and go on with a number or a message.
QString headInUsersWords(std::string_view text, std::string_view head);

}  // namespace tarnlog
