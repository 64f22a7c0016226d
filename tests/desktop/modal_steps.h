// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>
#include <QList>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <functional>
#include <vector>

namespace soran {

/// Steps in the windows that hold everything: each is done once, in turn, in the window that is then up.
class ModalSteps {
 public:
  using Step = std::function<void(QWidget&)>;

  explicit ModalSteps(std::vector<Step> steps) : steps_(std::move(steps)) { schedule(); }

  bool done() const { return next_ == steps_.size(); }

 private:
  // A timer of its own for each step: a step may hold everything by a window that the following one closes.
  void schedule() {
    QTimer::singleShot(20, &context_, [this] { next(); });
  }

  void next() {
    schedule();
    QWidget* window = QApplication::activeModalWidget();
    // On a slow machine the turn of the following step may come in the middle of this one.
    if (window && under_.contains(window))
      return;
    if (window && !done() && !window->isActiveWindow()) {
      // Without a window manager nobody else gives a window the focus; it comes with a later turn.
      window->activateWindow();
    } else if (window && !done()) {
      under_.append(window);
      steps_[next_++](*window);
      under_.removeLast();
    } else if (window && ++surplus_ > 50) {
      window->close();
    }
  }

  std::vector<Step> steps_;
  size_t next_ = 0;
  QList<QWidget*> under_; ///< the windows in which a step goes on
  int surplus_ = 0;
  QObject context_;
};

inline void click(QWidget& window, QStringView button) {
  QTest::mouseClick(window.findChild<QWidget*>(button.toString()), Qt::LeftButton);
}

/// The text of a message or a question.
inline QString textOfBox(const QWidget& window) {
  const auto* box = qobject_cast<const QMessageBox*>(&window);
  return box ? box->text() : QString();
}

} // namespace soran
