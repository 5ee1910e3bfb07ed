#pragma once

#include <QCoreApplication>
#include <QString>
#include <optional>

class QWidget;

namespace tarnlog {

/// A question for a file.
struct FileQuestion {
  QString title;
  QString proposed;       ///< a file or folder to begin at; empty for where the last one was
  QString filter;         ///< "Name (*.ext)|*.ext|..." pairs
  QString defaultSuffix;  ///< with its dot; added to a name without one
  QString name = {};      ///< of the dialog, for those who look for it
};

/// Everything that asks the user and waits for the answer, in a loop of its own: not to be asked inside a
/// request, whose tick would stand still below it (see WhenIdle). Tests and hosts with dialogs of their own
/// replace it.
class Dialogs {
 public:
  enum class Changed { Save, Discard, Cancel };
  enum class Incomplete { SaveAs, Save, Cancel };

  virtual ~Dialogs() = default;
  /// A file that exists; none when the user cancels.
  virtual std::optional<QString> fileToOpen(QWidget* parent, const FileQuestion& question) = 0;
  /// Asks before an existing file is replaced.
  virtual std::optional<QString> fileToSave(QWidget* parent, const FileQuestion& question) = 0;
  /// A message with the critical-error icon and an OK button.
  virtual void error(QWidget* parent, const QString& title, const QString& text) = 0;
  /// What to do with changed work that would be lost; `what` names it.
  virtual Changed changedWork(QWidget* parent, const QString& what) = 0;
  /// Where to save what would replace a file of which parts were left out at loading; `what` names the file.
  virtual Incomplete incompleteWork(QWidget* parent, const QString& what) = 0;
};

/// The toolkit's own dialogs.
class QtDialogs : public Dialogs {
  Q_DECLARE_TR_FUNCTIONS(QtDialogs)
 public:
  std::optional<QString> fileToOpen(QWidget* parent, const FileQuestion& question) override;
  std::optional<QString> fileToSave(QWidget* parent, const FileQuestion& question) override;
  void error(QWidget* parent, const QString& title, const QString& text) override;
  Changed changedWork(QWidget* parent, const QString& what) override;
  Incomplete incompleteWork(QWidget* parent, const QString& what) override;
};

}  // namespace tarnlog
