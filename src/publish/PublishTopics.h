#pragma once

#include <string>
#include <string_view>

namespace tarnlog {

/// A name as one level of a topic (MQTT 5): what a topic must not have there, or has as a sign ("/", "+",
/// "#", control characters, bytes that are no UTF-8), and "%", becomes "%" and two hexadecimal digits; an
/// empty name becomes "%". So different names stay different.
std::string topicLevel(std::string_view name);

/// The topics of one vehicle:
///
///     TOPIC/VEHICLE/state                      what it does; retained
///     TOPIC/VEHICLE/ECU/REQUEST                an answer
///     TOPIC/VEHICLE/ECU/REQUEST/description    what its values mean; retained
class PublishTopics {
 public:
  PublishTopics(std::string_view topic, std::string_view vehicle)
      : base_(std::string(topic) + "/" + topicLevel(vehicle) + "/") {}

  std::string state() const { return base_ + "state"; }
  std::string answers(std::string_view ecu, std::string_view request) const {
    return base_ + topicLevel(ecu) + "/" + topicLevel(request);
  }
  std::string description(std::string_view ecu, std::string_view request) const {
    return answers(ecu, request) + "/description";
  }

 private:
  std::string base_;
};

}  // namespace tarnlog
