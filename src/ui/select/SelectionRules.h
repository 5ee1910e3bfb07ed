#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/CatalogueKeys.h"
#include "catalogue/CatalogueSearch.h"
#include "catalogue/CatalogueTree.h"
#include "catalogue/SessionDocument.h"
#include "config/oTarnParameters.h"
#include "platform/xml/XmlDocument.h"
#include "ui/select/RemovedItems.h"

namespace tarnlog {

/// A row of the list of data to record. It holds copies of its texts: they can be shown while the
/// configuration is being replaced.
struct SelectedRow {
  oTarnScope* scope;
  XmlElement element;  ///< the data in the session document
  std::string data, request, ecu, device;
};

/// What the data selection screen shows, and what clicks on it do to the configuration: the tree of available
/// data on the left, the data to record on the right. Rows count from 0. Functions that change something and
/// return a bool tell whether the configuration changed; without a session document or parameters they do
/// nothing.
class SelectionRules {
 public:
  static constexpr std::size_t kNoRow = static_cast<std::size_t>(-1);

  /// Shows another session's catalogue, grouped by request. The list stays empty until `setParameters` or
  /// `DisplayDataList`.
  void setXmlSession(std::shared_ptr<const SessionDocument> document);
  const std::shared_ptr<const SessionDocument>& xmlSession() const { return document_; }
  /// Shows a configuration. What was removed from the list before can no longer be put back: the
  /// configuration may be another one.
  void setParameters(std::shared_ptr<oTarnParameters> parameters);
  const std::shared_ptr<oTarnParameters>& Parameters() const { return parameters_; }

  /// Builds the rows from the configuration, and updates key and index of each item that has one. Selects the
  /// row of `selectScope`, or without it the last row. Items that the session does not offer stay in the
  /// configuration, without a row. Fills the tree again when other data are chosen than before. Returns the
  /// number of rows.
  std::int32_t DisplayDataList(const oTarnScope* selectScope = nullptr);
  /// Empties the list and fills the tree again.
  void Clear();

  CatalogueTree& tree() { return tree_; }
  const CatalogueTree& tree() const { return tree_; }
  /// How ECU nodes are filled: "R" requests with their data, "O" devices with their data, "D" data alone. The
  /// tree is filled again unless it has this shape.
  void setShape(char key);
  /// Builds the children of an ECU node, if that is still to be done.
  void expand(CatalogueNode node);
  /// Leaves in the tree only data in which every word of the text is found; blanks only: all data.
  void setFilter(std::string_view text);
  bool filtering() const { return tree_.shown != nullptr; }
  /// What the filter found, as hits per ECU, without the data that were chosen at the last search.
  const std::vector<CatalogueSearch::Found::EcuCount>& found() const { return found_.ecus; }

  const std::vector<SelectedRow>& rows() const { return rows_; }
  /// The row that the last operation leaves selected, or kNoRow.
  std::size_t selectedRow() const { return selectedRow_; }

  /// The data nodes that these nodes stand for, each once and in the order of the tree: a request or a device
  /// stands for its data, an ECU for none.
  std::vector<CatalogueNode> dataNodes(const std::vector<CatalogueNode>& nodes) const;
  /// Whether adding these nodes would add anything.
  bool canAdd(const std::vector<CatalogueNode>& nodes) const;
  /// Moves the data of these nodes to the list, before that row or to the end. True when some were added.
  bool addData(const std::vector<CatalogueNode>& nodes, std::size_t before = kNoRow);
  /// A double click adds requests and data only. True when the node is a request or a data node, even if
  /// nothing was added.
  bool addsOnDoubleClick(CatalogueNode node) const;

  struct Removal {
    bool changed = false;
    std::vector<std::string> notFound;  ///< data that are not in the document; they stay in the list
  };
  /// Gives these rows back to the tree.
  Removal removeData(std::vector<std::size_t> rows, std::size_t focusedRow);
  /// Undoes the newest removal that was not undone yet.
  bool undoRemoval();

  /// By one place, past the neighbour.
  bool moveUp(std::size_t row);
  bool moveDown(std::size_t row);
  /// Moves rows together before that row (kNoRow: to the end); the first of them is selected.
  bool moveRows(std::vector<std::size_t> rows, std::size_t before);

 private:
  oTarnScope* MoveNodeToRecord(CatalogueNode node);
  void AddDataRow(oTarnScope& scope, XmlElement element);
  bool giveBack(const SelectedRow& row);
  void forgetRowsThat(const std::vector<bool>& leave);
  bool changePlaces(std::size_t row, std::size_t neighbour);
  bool buildRows(const oTarnScope* selectScope);
  void renewKey(oTarnScope& scope, XmlElement element) const;

  void fillTree();
  void search();
  XmlElement elementOf(const oTarnScope& scope) const;
  void forgetRows();
  void numberRows(std::size_t first);
  bool ready() const { return document_ != nullptr && parameters_ != nullptr; }

  std::shared_ptr<const SessionDocument> document_;
  std::shared_ptr<oTarnParameters> parameters_;
  CatalogueTree tree_;
  CatalogueSearch search_;
  CatalogueSearch::Found found_;
  std::string filter_;
  std::vector<SelectedRow> rows_;
  CatalogueKeys chosen_;  ///< the keys of the rows
  std::size_t selectedRow_ = kNoRow;
  std::vector<RemovedItems> removals_;
};

}  // namespace tarnlog
