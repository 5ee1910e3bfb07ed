#pragma once

#include <QWidget>
#include <algorithm>
#include <memory>
#include <utility>

#include "platform/screen/Controls.h"
#include "ui/common/Convert.h"

namespace tarnlog {

/// A control of the live display and the widget that shows it. Keeps the twips it is given; the widget takes
/// the whole pixels nearest to its edges, so that neighbours touch.
template <class Seam, class Shown>
class Placed : public Seam {
 public:
  explicit Placed(std::unique_ptr<Shown> shown) : shown_(std::move(shown)) {}

  Twips left() const override { return left_; }
  Twips top() const override { return top_; }
  Twips width() const override { return width_; }
  Twips height() const override { return height_; }
  void setLeft(Twips left) override { change(left_, left); }
  void setTop(Twips top) override { change(top_, top); }
  void setWidth(Twips width) override { change(width_, width); }
  void setHeight(Twips height) override { change(height_, height); }
  void setVisible(bool visible) override { shown_->setVisible(visible); }

  Shown& shown() { return *shown_; }
  const Shown& shown() const { return *shown_; }

 private:
  void change(Twips& edge, Twips value) {
    edge = value;
    const int x = toPixels(left_);
    const int y = toPixels(top_);
    shown_->setGeometry(x, y, std::max(toPixels(left_ + width_) - x, 0),
                        std::max(toPixels(top_ + height_) - y, 0));
  }

  std::unique_ptr<Shown> shown_;
  Twips left_ = 0;
  Twips top_ = 0;
  Twips width_ = 0;
  Twips height_ = 0;
};

}  // namespace tarnlog
