#pragma once

#include <cstddef>
#include <memory>
#include <set>
#include <string_view>
#include <vector>

#include "config/oTarnParameters.h"
#include "platform/ferrox3/Session.h"
#include "ui/init/OfferedRequests.h"

namespace tarnlog {

/// What the screen of the initialisation scenario shows, and what its controls do to the configuration. List
/// rows are positions in the scenario, from 1. Without parameters every action does nothing; while the screen
/// shows the rows of others, those on rows and requests do nothing.
class InitRules {
 public:
  using Rows = std::set<std::size_t>;
  enum class Added {
    yes,
    nothing,          ///< no request at this place
    addressTooLarge,  ///< the scenario holds 16-bit addresses; nothing was added
    full,             ///< the scenario cannot count one more
  };

  /// Kept for the next `setParameters`; the host owns it. May be null.
  void setSession(ferrox3::Session* session) { session_ = session; }
  /// Reads the session again and selects the first row. True when there is something to show anew; without a
  /// session the screen stays as it was. No parameters empty the tree.
  bool setParameters(std::shared_ptr<oTarnParameters> parameters);
  const std::shared_ptr<oTarnParameters>& Parameters() const { return parameters_; }
  /// Tree and rows are those of the parameters. They are not when these came without a session.
  bool shown() const { return shown_; }

  /// The tree: ECUs and their requests.
  const std::vector<OfferedEcu>& offered() const { return offered_; }
  /// The rows that are to be selected after the last action.
  const Rows& selection() const { return selection_; }

  /// Appends a request of the tree (positions from 0) and selects the first row.
  Added add(std::size_t ecu, std::size_t request);
  /// These three take the selected rows and tell whether the scenario changed.
  bool remove(const Rows& rows);
  bool moveUp(const Rows& rows);
  bool moveDown(const Rows& rows);

  /// Each tells whether the stored text changed.
  bool setStartSession(std::string_view text);
  bool leaveStartSession();

 private:
  std::size_t rowCount() const { return static_cast<std::size_t>(parameters_->initScenario->Count()); }

  ferrox3::Session* session_ = nullptr;
  std::shared_ptr<oTarnParameters> parameters_;
  bool shown_ = false;
  std::vector<OfferedEcu> offered_;
  Rows selection_;
};

}  // namespace tarnlog
