#include "config/oTarnParameters.h"
#include "platform/xml/XmlWriter.h"

namespace tarnlog {

namespace {

void writeScenario(ContentHandler& handler, const oScenario& scenario) {
  SaxAttributes attributes;
  handler.startElement("InitScenario");
  for (const oScenarioRequest& request : scenario) {
    attributes.clear();
    attributes.addAttribute("Name", request.RequestName);
    attributes.addAttribute("EcuName", request.EcuName);
    attributes.addAttribute("Address", std::to_string(request.Address));
    handler.startElement("Request", attributes);
    handler.endElement("Request");
  }
  handler.endElement("InitScenario");
}

void writeRecording(ContentHandler& handler, const oTarnParameters& parameters) {
  SaxAttributes attributes;
  attributes.addAttribute("period", std::to_string(parameters.recordingPeriod));
  handler.startElement("Recording", attributes);

  handler.startElement("Trigger");
  parameters.startTrigger->SaxWriteTrigger(handler);
  parameters.stopTrigger->SaxWriteTrigger(handler);
  handler.endElement("Trigger");

  attributes.clear();
  attributes.addAttribute("prefix", parameters.filePrefix);
  attributes.addAttribute("folder", parameters.fileFolder);
  attributes.addAttribute("format", parameters.fileFormat);
  handler.startElement("File", attributes);
  handler.endElement("File");
  handler.endElement("Recording");
}

}  // namespace

void oTarnParameters::SaxWriteParameters(ContentHandler& handler) const {
  handler.startElement("Parameters");
  if (!userDescription.empty()) handler.textElement("Comment", userDescription);
  if (!startSession.empty()) handler.textElement("StartSession", startSession);
  writeScenario(handler, *initScenario);
  writeRecording(handler, *this);
  handler.endElement("Parameters");
  handler.startElement("Datas");
  for (const oTarnScope& scope : scopes_) scope.SaxWrite(handler);
  handler.endElement("Datas");
}

void oTarnParameters::SaveXmlConfiguration(FileSystem& files, const std::string& fileName,
                                           const std::string& stylesheetUrl) const {
  std::string document;
  XmlWriter writer([&](std::string_view bytes) { document.append(bytes); });
  writer.startDocument();
  writer.processingInstruction("xml-stylesheet type=\"text/xsl\" href=\"" + stylesheetUrl + "\"", "");
  SaxAttributes version;
  version.addAttribute("Version", "2.0");
  writer.startElement("Tarnlog2000", version);
  writer.textElement("Description", "Parameters file");
  writer.textElement("File", fileName);
  SaxWriteParameters(writer);
  writer.endElement("Tarnlog2000");
  files.replace(fileName, document);
}

}  // namespace tarnlog
