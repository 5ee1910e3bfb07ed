#pragma once

#include <QAbstractItemView>
#include <QApplication>
#include <QTest>

namespace tarnlog::test {

inline void doubleClick(const QAbstractItemView& view, const QModelIndex& item) {
  const QPoint place = view.visualRect(item).center();
  QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, place);
  QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, place);
}

/// A notch of the wheel, downwards.
inline void turnWheel(QWidget& over) {
  QWheelEvent notch({5, 5}, over.mapToGlobal(QPointF(5, 5)), {}, {0, -120}, {}, {}, Qt::NoScrollPhase, false);
  QApplication::sendEvent(&over, &notch);
}

/// What minimising sends, which is the same as hiding, but not by the program.
inline void minimise(QWidget& widget) {
  QHideEvent hidden;
  QSpontaneKeyEvent::setSpontaneous(&hidden);
  QApplication::instance()->notify(&widget, &hidden);
}

}  // namespace tarnlog::test
