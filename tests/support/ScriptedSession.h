#pragma once

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/ScriptedEcu.h"

namespace tarnlog::test {

/// A diagnostic session made by hand:
///
///   ScriptedSession session;
///   auto& engine = session.addEcu("Engine", "Injection", 0x10, "KWP2000");
///   auto& status = engine.addRequest("Status", "21 80");
///   auto& speed = status.addData("Speed", ferrox3::kDouble, "km/h", 0, 250);
///   speed.setValue(12.5);
///   status.failing.next("no answer");  // the next send raises
///   session.script.whileWaiting = [&] { ... };  // runs inside every call that waits for the vehicle
class ScriptedSession : public ferrox3::Session {
 public:
  ScriptedEcu& addEcu(std::string name, std::string function, std::int32_t address,
                      std::string protocol = "KWP2000") {
    ecus_.push_back(std::make_unique<ScriptedEcu>(script, std::move(name), std::move(function), address,
                                                  std::move(protocol)));
    return *ecus_.back();
  }

  Script script;
  Failing failingInit;  ///< the whole initialisation raises, without a report on any ECU
  /// Lists and poll sets that were made and not yet told to finish.
  int unfinishedLists = 0;
  int unfinishedPollSets = 0;
  std::vector<ferrox3::Fact> known{};         ///< facts
  std::vector<ferrox3::ServiceCount> sent{};  ///< services

  std::size_t ecuCount() const override { return ecus_.size(); }
  ScriptedEcu& ecu(std::size_t position) const override { return *ecus_.at(position); }
  ScriptedEcu* findEcuByFunction(std::string_view functionName) const override {
    for (const auto& ecu : ecus_)
      if (ecu->functionName() == functionName) return ecu.get();
    return nullptr;
  }
  std::unique_ptr<ferrox3::AcquisitionList> createAcquisitionList() override;
  std::unique_ptr<ferrox3::RawBuffer> createRawBuffer() override {
    return std::make_unique<ScriptedRawBuffer>();
  }
  bool communicating() const override { return script.communicating; }
  void endCommunication() override { script.call("end communication"); }
  std::vector<ferrox3::Fact> facts() const override { return known; }
  std::vector<ferrox3::ServiceCount> servicesSent() const override { return sent; }

 private:
  std::vector<std::unique_ptr<ScriptedEcu>> ecus_;
};

class ScriptedPollSet : public ferrox3::PollSet, private ferrox3::Protocol {
 public:
  ScriptedPollSet(ScriptedSession& session, const std::vector<ferrox3::DataItem*>& items)
      : session_(session) {
    const auto addOnce = [](auto& list, auto& object) {
      if (std::find(list.begin(), list.end(), &object) == list.end()) list.push_back(&object);
    };
    for (ferrox3::DataItem* const item : items) {
      addOnce(requests_, item->request());
      addOnce(ecus_, item->request().ecu());
    }
    ++session.unfinishedPollSets;
  }

  std::size_t requestCount() const override { return requests_.size(); }
  ferrox3::Request& request(std::size_t position) const override { return *requests_.at(position); }
  std::size_t ecuCount() const override { return ecus_.size(); }
  ferrox3::Ecu& ecu(std::size_t position) const override { return *ecus_.at(position); }
  ferrox3::Protocol& protocol() override { return *this; }
  void finish() override {
    session_.script.calls.push_back("finish poll set");
    --session_.unfinishedPollSets;
  }

 private:
  void initialiseAll() override {
    session_.failingInit.check();
    for (ferrox3::Ecu* const ecu : ecus_) {
      try {
        static_cast<ScriptedEcu*>(ecu)->initialise();
        report(*ecu, false, "", "");
      } catch (const TarnError& error) {
        report(*ecu, true, "", error.description());
      }
    }
  }

  ScriptedSession& session_;
  std::vector<ferrox3::Request*> requests_;
  std::vector<ferrox3::Ecu*> ecus_;
};

/// Groups the items by request, in the order in which they were added.
class ScriptedList : public ferrox3::AcquisitionList {
 public:
  explicit ScriptedList(ScriptedSession& session) : session_(session) { ++session.unfinishedLists; }

  void add(ferrox3::DataItem& item) override { items_.push_back(&item); }
  std::unique_ptr<ferrox3::PollSet> pollSet() override {
    if (session_.script.whileListing) session_.script.whileListing();
    return std::make_unique<ScriptedPollSet>(session_, items_);
  }
  void finish() override {
    session_.script.calls.push_back("finish list");
    --session_.unfinishedLists;
  }

 private:
  ScriptedSession& session_;
  std::vector<ferrox3::DataItem*> items_;
};

inline std::unique_ptr<ferrox3::AcquisitionList> ScriptedSession::createAcquisitionList() {
  if (script.whileListing) script.whileListing();
  return std::make_unique<ScriptedList>(*this);
}

}  // namespace tarnlog::test
