#pragma once

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <string>
#include <vector>

#include "platform/controls/CWButton.h"
#include "platform/controls/CWNumEdit.h"
#include "ui/param/ParamRules.h"
#include "ui/param/TriggerRules.h"

namespace tarnlog {

/// The frame of one trigger: option buttons, channel list, edge, level and times.
class TriggerFrame : public QGroupBox {
  Q_OBJECT

 public:
  /// Of the controls; those that a trigger does not have are null.
  struct Names {
    const char* frame;
    const char* type;  ///< the option buttons are this and their number
    const char* channel;
    const char* edge;
    const char* level;
    const char* prepost;
    const char* prepostLabel;
    const char* restart;
    const char* time;
  };
  static const Names kStart;
  static const Names kStop;

  /// The rules must outlive the frame.
  TriggerFrame(TriggerRules& rules, const Names& names, QWidget* parent = nullptr);

  /// Shows what the rules say, without writing anything.
  void refresh(const std::vector<ParamRules::Channel>& channels);

 signals:
  /// The user changed the trigger.
  void edited();

 private:
  void addManual(QGridLayout& grid);
  void addTime(QGridLayout& grid);
  void addChannel(QGridLayout& grid);
  void addCrossing(QGridLayout& grid);
  void addPrepost(QGridLayout& grid);
  QRadioButton* addOption(const QString& caption);
  void connectControls();

  void listChannels(const std::vector<ParamRules::Channel>& channels);
  void showChoice();
  void showEdge();
  void showUnit();
  /// After an action of the user: shows what else it moved, and tells.
  void acted(bool changed);

  bool isStart() const { return rules_.kind() == TriggerRules::Kind::start; }

  TriggerRules& rules_;
  const Names& names_;
  std::vector<ParamRules::Channel> channels_;
  bool refreshing_ = false;
  QButtonGroup* type_;
  CWNumEdit* time_ = nullptr;
  QComboBox* channel_ = nullptr;
  CWButton* edge_ = nullptr;
  QLabel* levelLabel_ = nullptr;
  CWNumEdit* level_ = nullptr;
  CWNumEdit* prepost_ = nullptr;
  QCheckBox* restart_ = nullptr;
};

}  // namespace tarnlog
