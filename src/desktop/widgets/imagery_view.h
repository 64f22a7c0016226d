// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/web/web_page.h"
#include "imagery/image_fetch.h"
#include "platform/clock.h"
#include "platform/net_inet.h"

#include <QStackedWidget>
#include <functional>
#include <memory>

class QLabel;
class QPrinter;
class QPushButton;

namespace soran {

class BrowserFrame;
class PictureView;

/// What a view of charts or cameras is to show.
struct ImageryTarget {
  ImageRow row;
  QString source; ///< the key in the endpoints file
  QString path;   ///< on the host that may stand there
};

/// The view `WebBrowser` of charts and cameras: a picture, a web page, or the program's own page where there
/// is nothing to ask or nothing comes.
class ImageryView : public QStackedWidget {
  Q_OBJECT
 public:
  /// Carries an event out that may wait and be unwound.
  using Guard = std::function<void(const std::function<void()>&)>;

  ImageryView(QWidget* parent, const Clock& clock, const Shutdown& shutdown, Guard guard);
  ~ImageryView() override;

  /// What screen readers call the picture.
  void describe(const QString& title);

  /// Goes to the target; the picture before stays until it is there.
  void open(const ImageryTarget& target);
  /// Loads what is shown once more.
  void refresh();
  /// Ends what is under way.
  void stop();

  /// The program's own page is up.
  bool failed() const { return currentWidget() == failure_; }

  /// The line that goes with the picture, as of now, and whether it says that the picture is old; empty where
  /// none is shown.
  QString note() const;
  bool isOld() const;

  /// Prints what is shown on one page; false where the printer failed.
  bool print(QPrinter& printer);

 signals:
  /// The target is shown, or the program's own page in its place.
  void settled();

 private:
  QWidget* makeFailurePage();
  void fetch();
  void openPage();
  bool showFound(const FetchedImage& found);
  void showFailure();
  void settle(QWidget* page);
  void onPageState(WebPage::State state);

  const Clock& clock_;
  Guard guard_;
  // A fetch in the event loop may outlive the view.
  std::shared_ptr<NetInet> inet_;
  ImageryTarget target_;
  QUrl url_;        // what was asked last
  QDateTime time_;  // of the picture
  int request_ = 0; // a fetch that is no longer the last one has nothing to show
  PictureView* picture_;
  BrowserFrame* browser_ = nullptr; // made at the first page
  QWidget* failure_ = nullptr;
  QLabel* sourceName_ = nullptr;
  QLabel* sourceAddress_ = nullptr;
  QLabel* sourceNote_ = nullptr;
  QPushButton* again_ = nullptr;
};

} // namespace soran
