#pragma once

#include <QWidget>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "platform/ferrox3/Session.h"
#include "ui/common/HelpPanel.h"
#include "ui/main/ConfigurationDesk.h"
#include "ui/main/MainEnvironment.h"

class QAction;
class QStackedWidget;
class QTabBar;
class QToolBar;

namespace tarnlog {

class NoticeBar;
class TarnInit;
class TarnPaSc;
class TarnParam;
class TarnSelect;
class WhenIdle;

/// The configuration view: four screens under one tab strip, all editing one configuration, and the loading
/// and saving of configuration files. Hiding the view releases the configuration; minimising the window does
/// not. What was left out at loading goes to the notice bar, failures and questions go to dialogs.
class Tarn2001 : public QWidget {
  Q_OBJECT
 public:
  Tarn2001(const MainEnvironment& environment, NoticeBar& notices, QWidget* parent = nullptr);

  void setParameters(std::shared_ptr<oTarnParameters> parameters);
  const std::shared_ptr<oTarnParameters>& Parameters() const { return desk_.Parameters(); }
  /// Reads the whole catalogue of the session, which must outlive its use here. Raises what the session
  /// raises; the view then has no session.
  void setSession(ferrox3::Session* session);
  bool hasSession() const { return session_ != nullptr; }
  /// Raises what the loader raises, and error 1, "Parameters not defined", while the configuration is put
  /// away.
  void OpenConfigFile(const std::string& fileName);
  /// Asks for a file and saves (1) or loads (any other) the configuration.
  void OuvrirSelecteurFichier(std::int16_t mode);

  /// Loads as the "load" button does once a file is chosen: failures go into a box, and the screens show what
  /// is left. False when it failed. Without a session nothing is offered yet: `loadAgain` is to follow.
  bool load(const std::string& fileName);
  /// Loads once more what the user loaded before there was a session.
  void loadAgain();
  /// A file that was loaded before there was a session; empty when there is no such file.
  const std::string& earlyFile() const { return earlyFile_; }
  /// Saves into the configuration's own file, or asks for one: also when parts of it would be lost. False
  /// when that failed or was cancelled.
  bool save();
  /// Offers to save changes that would be lost. True when the caller may go on.
  bool mayBeLost();

  /// How fast the last acquisition polled, for the recording parameters; empty: nobody knows.
  void showPolled(const QString& text);

  /// Somebody else than the screens changed the configuration.
  void noteEdit() { desk_.noteEdit(); }

  const ConfigurationDesk& desk() const { return desk_; }
  /// Open, save, save as: for the menus of whoever shows this. Disabled while the configuration is put away;
  /// without a session there is nothing to save.
  QList<QAction*> fileActions() const { return {open_, save_, saveAs_}; }

  /// What the screen in front tells of its keys.
  HelpPage helpPage() const;
  /// Gives the keyboard to the available data, or to the tabs where another screen is in front.
  void focusScreen();
  /// False when the screen in front has no filter.
  bool focusFilter();
  /// By the key of its tab.
  void chooseScreen(const QString& key);

  void setVisible(bool visible) override;

 signals:
  /// The configuration's file name, or whether it was changed, may have changed.
  void stateChanged();

 protected:
  void hideEvent(QHideEvent* event) override;

 private:
  void createActions();
  void atClick(QAction* button, const std::function<void()>& action);
  QToolBar* createToolBar();
  void createScreens(const MainEnvironment& environment);
  void addScreen(QWidget* screen, const QString& caption, const char* key);
  void showScreen(int tab);
  void giveParameters();
  void takeSession(ferrox3::Session* session, const std::shared_ptr<const SessionDocument>& xmlSession);
  void putAway();
  void showState();
  void showLoaded(const std::string& fileName, bool waits);
  void showLoad(const std::string& fileName);
  void showLacks(const std::string& fileName);
  bool saveTo(const std::string& fileName);
  bool chooseAndSave();
  void chooseAndLoad();

  ConfigurationDesk desk_;
  Dialogs& dialogs_;
  NoticeBar& notices_;
  WhenIdle* whenIdle_;
  ferrox3::Session* session_ = nullptr;
  std::string earlyFile_;
  QAction* open_;
  QAction* save_;
  QAction* saveAs_;
  QTabBar* tabStrip_ = nullptr;
  QStackedWidget* screens_ = nullptr;
  TarnSelect* select_ = nullptr;
  TarnParam* param_ = nullptr;
  TarnPaSc* paramScope_ = nullptr;
  TarnInit* paramInit_ = nullptr;
};

}  // namespace tarnlog
