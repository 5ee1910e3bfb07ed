#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/files/FileSystem.h"
#include "publish/BrokerAddress.h"
#include "publish/MeasurementAnswers.h"
#include "publish/MqttClient.h"
#include "publish/PublishSelection.h"
#include "publish/PublishTopics.h"
#include "publish/PublishedNote.h"

namespace tarnlog {

/// What is published of a measurement file, and where.
struct PublishTerms {
  BrokerAddress to;
  std::string vehicle;  ///< as it is called in the topics; empty: its VIN or name, as the file has it
  PublishSelection selection;
  bool again = false;  ///< what was acknowledged before, too
};

/// The messages of one measurement file, in its order: from where the acknowledgements ended, as the note
/// beside the file tells.
class Publication {
 public:
  /// An answer or, of a file that is being recorded, what the vehicle does now.
  struct Outgoing {
    MqttMessage message;
    std::uint64_t sequence = 0;  ///< 0: no answer
  };

  /// Raises a TarnError when the file is no measurement file of this recorder. `files` outlives it.
  Publication(FileSystem& files, std::string path, const PublishTerms& terms, bool live);

  /// As MeasurementAnswers.
  void growTo(std::uint64_t till) { answers_.growTo(till); }
  /// The file gets no more.
  void close();

  /// What subscribers have to know; to be published at each connection.
  std::vector<MqttMessage> introduction(bool retained) const;
  bool isIntroduced() const { return introduced_; }
  void setIntroduced(bool introduced) { introduced_ = introduced; }
  /// What the vehicle does, retained.
  MqttMessage state(const char* name) const;
  const char* stateNow() const { return answers_.recording().empty() ? "polling" : "recording"; }
  /// False when there is none for now, or none was found yet: see `isSearching`.
  bool next(Outgoing& outgoing);
  bool isSearching() const { return !exhausted_; }
  /// The file is damaged: what stands behind is not published.
  bool isDamaged() const { return answers_.isDamaged(); }
  /// Everything up to this sequence number was acknowledged.
  void acknowledged(std::uint64_t sequence);
  /// Nothing is left, and nothing will come.
  bool isComplete() const { return closed_ && exhausted_ && until_.acknowledged >= lastSent_; }
  /// Answers that were acknowledged since this was made.
  std::uint64_t published() const { return published_; }

  /// Writes the note, when it says something new. Raises a TarnError when it cannot be written.
  void save();
  const std::string& path() const { return path_; }

 private:
  struct Datum {
    std::size_t column;
    PublishPace pace;
  };

  void select(const PublishSelection& selection);
  bool selectDue();

  FileSystem& files_;
  std::string path_;
  bool live_;
  MeasurementAnswers answers_;
  std::string acquisition_;
  PublishTopics topics_;
  std::vector<std::vector<Datum>> selected_;  ///< by group
  std::vector<std::string> answerTopics_;     ///< by group
  std::vector<std::size_t> due_;              ///< columns of the answer gone to
  PublishedUntil until_;
  std::uint64_t begun_ = 0;  ///< up to this one all were acknowledged before
  std::uint64_t lastSent_ = 0;
  std::uint64_t published_ = 0;
  bool introduced_ = false;
  bool closed_ = false;
  bool exhausted_ = false;
  bool changed_ = true;
};

}  // namespace tarnlog
