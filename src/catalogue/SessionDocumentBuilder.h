#pragma once

#include <cstdint>
#include <string_view>

#include "catalogue/SessionIndex.h"
#include "platform/base/TarnError.h"
#include "platform/ferrox3/Session.h"
#include "platform/xml/XmlDocument.h"

namespace tarnlog {

/// Fills an empty document and its index from a session. Failures are raised until the first look-up in an
/// ECU's data table; from then on the step that failed is skipped and what it would have written is missing.
class SessionDocumentBuilder {
 public:
  SessionDocumentBuilder(XmlDocument& document, SessionIndex& index) : document_(document), index_(index) {}

  void build(const ferrox3::Session& session);

 private:
  /// Runs a step under the rule on failures; false when it was skipped.
  template <class Step>
  bool step(Step&& run) {
    if (skipping_) return skipOnFailure(run);
    run();
    return true;
  }
  /// What a host call gives, or the fallback when the step is skipped.
  template <class T, class Call>
  T read(T fallback, Call&& call) {
    step([&] { fallback = call(); });
    return fallback;
  }

  void addEcu(const ferrox3::Ecu& ecu);
  void addRequest(const ferrox3::Ecu& ecu, const ferrox3::Request& request, XmlElement uce);
  /// False when the item must not be read, so that its request is dropped.
  bool addData(const ferrox3::Ecu& ecu, const ferrox3::Request& request, const ferrox3::DataItem& item,
               XmlElement requestElement);
  void addValueKind(const ferrox3::DataItem& item, XmlElement data);
  void addDevice(const ferrox3::DataItem& item, XmlElement data);
  void addReference(const ferrox3::Ecu& ecu, const ferrox3::Request& request, std::string_view name,
                    XmlElement data);
  void addEnumeration(const ferrox3::DataItem& item, XmlElement data);
  void addKey(XmlElement element);

  XmlDocument& document_;
  SessionIndex& index_;
  SessionIndex::ChildList requestsOfEcu_;  ///< of the ECU being built
  SessionIndex::ChildList dataOfRequest_;  ///< of the request being built
  std::int32_t counter_ = 0;
  bool skipping_ = false;
};

}  // namespace tarnlog
