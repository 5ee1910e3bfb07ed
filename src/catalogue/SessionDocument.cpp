#include "catalogue/SessionDocument.h"

#include "catalogue/SessionDocumentBuilder.h"
#include "catalogue/SessionIndex.h"

namespace tarnlog {

struct SessionDocument::Content {
  XmlDocument document;
  SessionIndex index;
};

SessionDocument::SessionDocument() : content_(std::make_unique<Content>()) {}
SessionDocument::SessionDocument(SessionDocument&&) noexcept = default;
SessionDocument& SessionDocument::operator=(SessionDocument&&) noexcept = default;
SessionDocument::~SessionDocument() = default;

const XmlDocument& SessionDocument::document() const { return content_->document; }

SessionDocument BuildSessionDocument(const ferrox3::Session& session) {
  SessionDocument built;
  SessionDocumentBuilder(built.content_->document, built.content_->index).build(session);
  return built;
}

XmlElement FindSessionRequest(const SessionDocument& document, std::string_view ecuName,
                              std::string_view requestName, std::int32_t address) {
  return document.content_->index.findRequest(ecuName, address, requestName);
}

XmlElement FindSessionData(const SessionDocument& document, std::string_view ecuName,
                           std::string_view requestName, std::string_view dataName, std::int32_t address) {
  return document.content_->index.findData(ecuName, address, requestName, dataName);
}

}  // namespace tarnlog
