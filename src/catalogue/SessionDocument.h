#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "platform/ferrox3/Session.h"
#include "platform/xml/XmlDocument.h"

namespace tarnlog {

/// The catalogue of everything that a diagnostic session offers: an XML document (root Tarnlog2000; uce,
/// request and data elements, each with its key `c`), with an index that answers look-ups as a walk in
/// document order would.
class SessionDocument {
 public:
  SessionDocument();
  SessionDocument(SessionDocument&&) noexcept;
  SessionDocument& operator=(SessionDocument&&) noexcept;
  ~SessionDocument();

  const XmlDocument& document() const;

 private:
  friend SessionDocument BuildSessionDocument(const ferrox3::Session& session);
  friend XmlElement FindSessionRequest(const SessionDocument&, std::string_view, std::string_view,
                                       std::int32_t);
  friend XmlElement FindSessionData(const SessionDocument&, std::string_view, std::string_view,
                                    std::string_view, std::int32_t);
  struct Content;
  std::unique_ptr<Content> content_;
};

SessionDocument BuildSessionDocument(const ferrox3::Session& session);

/// The first ECU in document order whose name OR address matches, then its first request of that name; none
/// otherwise.
XmlElement FindSessionRequest(const SessionDocument& document, std::string_view ecuName,
                              std::string_view requestName, std::int32_t address);
/// The same, then the request's first data of that name.
XmlElement FindSessionData(const SessionDocument& document, std::string_view ecuName,
                           std::string_view requestName, std::string_view dataName, std::int32_t address);

}  // namespace tarnlog
