#pragma once

#include <QObject>
#include <string>
#include <vector>

#include "platform/xml/XmlDocument.h"
#include "ui/select/CatalogueModel.h"

class QTreeView;

namespace tarnlog {

/// Keeps what is expanded and where the user is when the tree is filled again for the same session; expands
/// what a filter found, as long as it is not much.
class TreeExpansion : public QObject {
 public:
  /// The view shows the model already.
  TreeExpansion(QTreeView& view, CatalogueModel& model, const SelectionRules& rules);

  /// To be called after what may have filled the tree.
  void restore();
  /// To be called instead of `restore` when it was filled for another session.
  void forget();

 private:
  void remember();
  void rememberBelow(const QModelIndex& parent);
  void restoreCurrent();
  void expandFound();
  bool expand(CatalogueNode node);

  QTreeView& view_;
  CatalogueModel& model_;
  const SelectionRules& rules_;
  std::vector<std::string> expanded_;  ///< keys, those above before those below
  XmlElement current_;
  bool filtered_ = false;  ///< the tree as the user sees it shows what a filter found
  bool reset_ = false;     ///< it has been filled and not been restored yet
};

}  // namespace tarnlog
