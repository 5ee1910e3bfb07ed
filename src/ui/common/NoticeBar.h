#pragma once

#include <QFrame>
#include <QHash>
#include <QStringList>
#include <functional>

class QVBoxLayout;

namespace tarnlog {

/// Messages above the views that nobody has to click away: one for each subject, a newer one takes the place
/// of the older. Hidden while there is none.
class NoticeBar : public QFrame {
  Q_OBJECT
 public:
  explicit NoticeBar(QWidget* parent = nullptr);

  /// A button beside the text, and what a click on it does; none without a text.
  struct Action {
    QString text;
    std::function<void()> run;
  };

  /// `details`, when there are several, open below the text at a click.
  void showNotice(const QString& subject, const QString& text, const QStringList& details = {},
                  const Action& action = {});
  void removeNotice(const QString& subject);
  /// Empty when there is none.
  QString notice(const QString& subject) const;
  QStringList details(const QString& subject) const;
  QStringList subjects() const { return notices_.keys(); }

 private:
  class Notice;

  QVBoxLayout* rows_;
  QHash<QString, Notice*> notices_;
};

}  // namespace tarnlog
