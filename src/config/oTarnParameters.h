#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "config/oScenario.h"
#include "config/oTarnScope.h"
#include "config/oTarnTrigger.h"
#include "platform/base/KeyedCollection.h"
#include "platform/files/FileSystem.h"
#include "platform/settings/SettingsStore.h"
#include "platform/xml/ContentHandler.h"

namespace tarnlog {

class SessionDocument;
struct LoadReport;

/// The whole recording configuration: what to record, how often, when, what to send first, and where to
/// write. Shared by every screen and by the acquisition, which reads it while recording.
class oTarnParameters {
 public:
  /// The defaults of period, folder and format come from the settings; failures there leave the built-in
  /// ones.
  explicit oTarnParameters(const SettingsStore& settings);

  std::string userDescription;
  std::string fileFormat =
      ".txt";  ///< ".xml" gives XML files, anything else tab-separated text of that extension
  std::string filePrefix;
  std::string fileFolder;
  std::string startSession;          ///< bytes of a request sent to every ECU first; empty = none
  std::int32_t recordingPeriod = 1;  ///< seconds between rows; 0 = every polling cycle
  std::shared_ptr<oTarnTrigger> startTrigger;
  std::shared_ptr<oTarnTrigger> stopTrigger;
  std::shared_ptr<oScenario> initScenario;

  /// Takes a text of a file or the settings; what is no number, or below 0, leaves the period as it is.
  void setRecordingPeriod(std::string_view text);

  oTarnScope& Add(const std::string& key);
  /// Keyed by the item's DataKey. A key that is taken raises the collection's error.
  oTarnScope& AddScope(std::unique_ptr<oTarnScope> scope);
  /// By key or by 1-based position; null when absent.
  oTarnScope* Item(std::string_view key) const { return scopes_.find(key); }
  oTarnScope* Item(std::size_t position) const { return scopes_.find(position); }
  /// The first item whose `index` is this, or null.
  oTarnScope* ItemIndex(std::int32_t index) const;
  std::int32_t Count() const { return static_cast<std::int32_t>(scopes_.Count()); }
  /// These two remove entries and repair no references.
  void Remove(std::string_view key) { scopes_.Remove(key); }
  void Remove(std::size_t position) { scopes_.Remove(position); }
  void RemoveAll();
  /// Gives every item its position as `index`. What changes positions here does so itself; a load leaves the
  /// numbers of the file, see mapStoredReferences.
  void renumber();
  auto begin() const { return scopes_.begin(); }
  auto end() const { return scopes_.end(); }

  /// Removes one item and hands it over; repairs references by position: curves of a removed Graph become
  /// Graphs, X-axis references are left to CheckAndCorrect. Out of range: nothing, and null.
  std::unique_ptr<oTarnScope> removeScope(std::int32_t position);
  /// The same for many at once, as if removed one after another from the last to the first, in time that
  /// grows with their number and not with its square. In the order of their positions.
  std::vector<std::unique_ptr<oTarnScope>> removeScopes(std::vector<std::int32_t> positions);
  struct PlacedScope {
    std::unique_ptr<oTarnScope> scope;
    std::int32_t position;
  };
  /// Inserts items so that they have these positions, which grow from one to the next; those behind the end
  /// come to the end. References by position of the others follow the items that they refer to. Keys must not
  /// be taken.
  void insertScopes(std::vector<PlacedScope> placed);
  /// Moves the first item to the place of the second and repairs references by position; what would refer to
  /// an item at or behind its own place becomes a Graph. Both items' `index` must be their position.
  void changeScopeOrder(oTarnScope& moved, oTarnScope& target);
  /// Moves items any distance, in the order in which they are given, to stand together before another item
  /// that is not one of them (null: at the end). References follow the items that they refer to; what would
  /// refer to an item at or behind its own place becomes a Graph.
  void moveScopes(const std::vector<oTarnScope*>& moved, const oTarnScope* before);
  /// Turns items whose reference designates no Graph into Graphs of their own.
  void CheckAndCorrect();

  /// Creates or replaces the file, by renaming.
  void SaveXmlConfiguration(FileSystem& files, const std::string& fileName,
                            const std::string& stylesheetUrl) const;
  /// Writes the "Parameters" and "Datas" elements.
  void SaxWriteParameters(ContentHandler& handler) const;
  /// Reads a version 2.0 or 1.0 file into this object, whose data items the caller removes before; data and
  /// requests that the session does not offer are dropped, and noted in `report` when there is one. Items
  /// keep the `index` of the file: see mapStoredReferences. Raises error 1, source "LoadXmlConfiguration load
  /// error", when the file cannot be read or is not a configuration; nothing has changed then.
  void LoadXmlConfiguration(const FileSystem& files, const std::string& fileName,
                            const SessionDocument& session, LoadReport* report = nullptr);

 private:
  KeyedCollection<oTarnScope> scopes_;
};

}  // namespace tarnlog
