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

  /// What went wrong or needs the user, with a sign. `details`, when there are several, open below the text
  /// at a click.
  void showNotice(const QString& subject, const QString& text, const QStringList& details = {},
                  const Action& action = {});
  /// The same of what goes well, without the sign.
  void showNews(const QString& subject, const QString& text, const Action& action = {});
  void removeNotice(const QString& subject);
  /// Empty when there is none.
  QString notice(const QString& subject) const;
  QStringList details(const QString& subject) const;
  /// There is a message with the sign about it.
  bool warns(const QString& subject) const;
  QStringList subjects() const { return notices_.keys(); }

 private:
  class Notice;

  void add(const QString& subject, Notice* notice);

  QVBoxLayout* rows_;
  QHash<QString, Notice*> notices_;
};

}  // namespace tarnlog
