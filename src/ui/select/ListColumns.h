#pragma once

#include <QObject>
#include <array>

class QTreeView;

namespace tarnlog {

/// The widths of the four columns of the list of data to record: two sixths of the list each for data and
/// request, one each for ECU and device, and scaled with the list from then on, as the user left them.
class ListColumns : public QObject {
 public:
  explicit ListColumns(QTreeView& list);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void fit(int listWidth);
  void apply();

  QTreeView& list_;
  std::array<double, 4> widths_{};  ///< pixels
  int listWidth_ = 0;               ///< that they belong to; 0: not laid out yet
  bool applying_ = false;
};

}  // namespace tarnlog
