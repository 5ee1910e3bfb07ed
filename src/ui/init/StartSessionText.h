#pragma once

#include <string>
#include <string_view>

/// The bytes of the request that starts a session, as the user types them.
namespace tarnlog {

/// What is kept when the user leaves the box: without blanks at both ends, and with a "0" in front when the
/// number of characters is odd ("10A" is 010A).
std::string normalisedStartSession(std::string_view text);

/// Whether the bytes can be sent once the box is left: pairs of hexadecimal digits, blanks between pairs.
/// An empty text is fine: there is nothing to send.
bool isSendableStartSession(std::string_view text);

}  // namespace tarnlog
