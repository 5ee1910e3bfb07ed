#pragma once

#include <QString>
#include <QWidget>
#include <vector>

#include "ui/common/Guide.h"

class QFormLayout;
class QShortcut;

namespace tarnlog {

struct HelpRow {
  QString keys;
  QString what;
};

/// What a page tells of its keys, besides F1.
struct HelpPage {
  QString title;
  std::vector<HelpRow> rows;
};

/// A small panel beside a page: its keys, and the way to the guide and to what the messages mean. Nothing
/// waits for it; Escape, here and on the page, and F1 close it, and it goes with the page. It takes the
/// focus, unless it has `WA_ShowWithoutActivating`.
class HelpPanel : public QWidget {
  Q_OBJECT
 public:
  HelpPanel(Guide guide, QWidget* page);

  /// Closes the panel, unless it shows another page.
  void toggle(const HelpPage& page);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  QWidget* makeButtons();
  void fill(const HelpPage& page);
  void add(const HelpRow& row);
  void place();

  Guide guide_;
  QFormLayout* rows_;
  QShortcut* closeOnPage_;
};

}  // namespace tarnlog
