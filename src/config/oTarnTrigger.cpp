#include "config/oTarnTrigger.h"

#include <optional>
#include <string>

#include "platform/text/Numbers.h"

namespace tarnlog {

namespace {

SaxAttributes channelAttributes(const oTarnTrigger& trigger) {
  SaxAttributes attributes;
  attributes.addAttribute("edge", std::to_string(trigger.edge));
  attributes.addAttribute("level", exactNumberText(trigger.level));
  attributes.addAttribute("index", std::to_string(trigger.DataIndex));
  return attributes;
}

void writeElement(ContentHandler& handler, const char* name, const SaxAttributes& attributes) {
  handler.startElement(name, attributes);
  handler.endElement(name);
}

/// The attribute as an integer; one that is absent or not a number leaves the value alone.
bool readInteger(XmlElement element, const char* name, std::int32_t& value) {
  const auto text = element.attribute(name);
  const auto number = text ? wholeInteger(*text) : std::nullopt;
  if (number) value = *number;
  return number.has_value();
}

/// A channel trigger whose index cannot be read stays what it was.
void readChannel(oTarnTrigger& trigger, XmlElement channel) {
  readInteger(channel, "edge", trigger.edge);
  if (const auto level = channel.attribute("level")) trigger.level = leadingNumber(*level);
  if (readInteger(channel, "index", trigger.DataIndex)) trigger.typeTrigger = oTarnTrigger::kChannel;
}

}  // namespace

void oTarnTrigger::SaxWriteTrigger(ContentHandler& handler) const {
  if (modeTrigger == 0) SaxWriteTriggerStart(handler);
  if (modeTrigger == 1) SaxWriteTriggerStop(handler);
}

void oTarnTrigger::SaxWriteTriggerStart(ContentHandler& handler) const {
  if (typeTrigger < kManual || typeTrigger > kTime) return;
  SaxAttributes attributes;
  attributes.addAttribute("prepost", std::to_string(prepost));
  attributes.addAttribute("restart", restart ? "1" : "0");
  attributes.addAttribute("type", typeTrigger == kChannel ? "Channel" : "Manual");
  handler.startElement("Start", attributes);
  if (typeTrigger == kChannel) writeElement(handler, "Channel", channelAttributes(*this));
  handler.endElement("Start");
}

void oTarnTrigger::SaxWriteTriggerStop(ContentHandler& handler) const {
  if (typeTrigger < kManual || typeTrigger > kTime) return;
  SaxAttributes attributes;
  attributes.addAttribute("prepost", std::to_string(prepost));
  attributes.addAttribute("type", typeTrigger == kChannel ? "Channel"
                                  : typeTrigger == kTime  ? "Time"
                                                          : "Manual");
  handler.startElement("Stop", attributes);
  if (typeTrigger == kChannel) writeElement(handler, "Channel", channelAttributes(*this));
  if (typeTrigger == kTime) {
    SaxAttributes time;
    time.addAttribute("seconde", std::to_string(timeSeconde));
    writeElement(handler, "Time", time);
  }
  handler.endElement("Stop");
}

void oTarnTrigger::ReadTriggerStart(XmlElement parameters) {
  typeTrigger = kManual;
  prepost = 0;
  restart = false;
  edge = 1;
  level = 0;
  const XmlElement start = parameters.selectSingleNode("Recording/Trigger/Start");
  readInteger(start, "prepost", prepost);
  if (const auto text = start.attribute("restart")) restart = *text == "1";
  if (start.attributeOrEmpty("type") == "Channel") readChannel(*this, start.firstChild("Channel"));
}

void oTarnTrigger::ReadTriggerStop(XmlElement parameters) {
  typeTrigger = kManual;
  prepost = 0;
  timeSeconde = 0;
  edge = 1;
  level = 0;
  DataIndex = 0;
  const XmlElement stop = parameters.selectSingleNode("Recording/Trigger/Stop");
  readInteger(stop, "prepost", prepost);
  const auto type = stop.attributeOrEmpty("type");
  if (type == "Time") {
    typeTrigger = kTime;
    readInteger(stop.firstChild("Time"), "seconde", timeSeconde);
  } else if (type == "Channel") {
    readChannel(*this, stop.firstChild("Channel"));
  }
}

}  // namespace tarnlog
