#include "publish/BrokerAccess.h"

#include <array>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <utility>

#include "platform/base/TarnError.h"

namespace tarnlog {

namespace {

struct Member {
  const char* name;
  std::string BrokerAccess::*text;
  bool isPath;
};
constexpr std::array kMembers{
    Member{"user", &BrokerAccess::user, false},   Member{"password", &BrokerAccess::password, false},
    Member{"ca", &BrokerAccess::authority, true}, Member{"certificate", &BrokerAccess::certificate, true},
    Member{"key", &BrokerAccess::key, true},
};
constexpr const char* kExpected = "expected an object of user, password, ca, certificate and key";

[[noreturn]] void refuse(const std::string& path, const std::string& what) {
  throw TarnError(1, "BrokerAccess", path + ": " + what);
}

nlohmann::json parsed(const std::string& path, const std::string& text) {
  try {
    return nlohmann::json::parse(text);
  } catch (const nlohmann::json::parse_error& error) {
    refuse(path, "byte " + std::to_string(error.byte) + ": no JSON, " + kExpected);
  } catch (const nlohmann::json::exception&) {
    refuse(path, std::string("no JSON, ") + kExpected);
  }
}

}  // namespace

BrokerAccess readBrokerAccess(const std::string& path, const std::string& text) {
  const nlohmann::json object = parsed(path, text);
  if (!object.is_object()) refuse(path, kExpected);
  BrokerAccess access;
  std::size_t known = 0;
  for (const Member& member : kMembers) {
    const auto found = object.find(member.name);
    if (found == object.end()) continue;
    ++known;
    if (!found->is_string()) refuse(path, std::string(member.name) + ": expected a text");
    access.*member.text = found->get<std::string>();
    if (member.isPath)
      access.*member.text = (std::filesystem::path(path).parent_path() / (access.*member.text)).string();
  }
  if (known != object.size()) refuse(path, std::string("something else stands there: ") + kExpected);
  if (access.certificate.empty() != access.key.empty())
    refuse(path, "a certificate needs a key, and a key a certificate");
  if (access.user.empty() && !access.password.empty()) refuse(path, "a password needs a user");
  return access;
}

}  // namespace tarnlog
