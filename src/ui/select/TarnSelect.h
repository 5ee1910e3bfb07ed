#pragma once

#include <QWidget>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "catalogue/SessionDocument.h"
#include "config/oTarnParameters.h"
#include "ui/common/HelpPanel.h"
#include "ui/select/SelectionRules.h"

namespace tarnlog {

class AvailablePane;
class CatalogueModel;
class RecordPane;
class SelectedDataModel;

/// The data selection screen: on the left the data that the session offers, on the right those to record.
class TarnSelect : public QWidget {
  Q_OBJECT
 public:
  explicit TarnSelect(QWidget* parent = nullptr);
  ~TarnSelect() override;

  /// Shows the catalogue of a session; the list is empty until the parameters come, or are displayed, again.
  void setXmlSession(std::shared_ptr<const SessionDocument> document);
  const std::shared_ptr<const SessionDocument>& xmlSession() const { return rules_.xmlSession(); }
  /// Shows a configuration, which the screen edits in place.
  void setParameters(std::shared_ptr<oTarnParameters> parameters);
  const std::shared_ptr<oTarnParameters>& Parameters() const { return rules_.Parameters(); }
  /// Builds the list again from the configuration and selects that item's row, or the last one. Returns the
  /// number of rows.
  std::int32_t DisplayDataList(const oTarnScope* selectScope = nullptr);
  /// Empties the list and fills the tree again.
  void Clear();

  /// These take the keyboard to the available data.
  void focusFilter();
  void focusTree();
  static std::vector<HelpRow> helpRows();

 signals:
  /// The user changed the configuration.
  void edited();

 private:
  void connectPanes();
  void createKeys();
  void putInTabOrder();
  void updateButtons();

  void addNodes(const std::vector<CatalogueNode>& nodes, std::size_t before);
  void removeRows(const std::vector<std::size_t>& rows);
  void undoRemoval();
  void move(bool (SelectionRules::*step)(std::size_t));
  void moveRows(const std::vector<std::size_t>& rows, std::size_t before);
  /// Runs an operation that may change rows and configuration, shows its result and tells of the change.
  template <class Operation>
  void edit(Operation&& operation);
  /// Runs an operation that may change the rows of the list and fill the tree.
  template <class Operation>
  void refill(Operation&& operation);
  void selectRow(std::size_t row);
  void reportNotFound(const std::vector<std::string>& names);

  SelectionRules rules_;
  CatalogueModel* catalogue_;
  SelectedDataModel* selected_;
  AvailablePane* available_;
  RecordPane* record_;
};

}  // namespace tarnlog
