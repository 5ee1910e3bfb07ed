#pragma once

#include <QFrame>
#include <QHash>
#include <QStringList>

class QVBoxLayout;

namespace tarnlog {

/// Messages above the views that nobody has to click away: one for each subject, a newer one takes the place
/// of the older. Hidden while there is none.
class NoticeBar : public QFrame {
  Q_OBJECT
 public:
  explicit NoticeBar(QWidget* parent = nullptr);

  /// `details`, when there are several, open below the text at a click.
  void showNotice(const QString& subject, const QString& text, const QStringList& details = {});
  void removeNotice(const QString& subject);
  /// Empty when there is none.
  QString notice(const QString& subject) const;
  QStringList details(const QString& subject) const;

 private:
  class Notice;

  QVBoxLayout* rows_;
  QHash<QString, Notice*> notices_;
};

}  // namespace tarnlog
