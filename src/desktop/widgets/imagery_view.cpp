// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/widgets/imagery_view.h"

#include "desktop/pdf/pdf_reader.h"
#include "desktop/widgets/browser_frame.h"
#include "desktop/widgets/picture_view.h"
#include "imagery/sources.h"
#include "platform/program_module.h"

#include <QLabel>
#include <QPainter>
#include <QPointer>
#include <QPrinter>
#include <QPushButton>
#include <QVBoxLayout>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

constexpr int answerSeconds = 20;

QLabel* addLine(QWidget* page, const QString& name, const QString& description) {
  auto* label = new QLabel(page);
  label->setObjectName(name);
  label->setAccessibleDescription(description);
  label->setTextFormat(Qt::PlainText);
  label->setAlignment(Qt::AlignCenter);
  label->setWordWrap(true);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  page->layout()->addWidget(label);
  return label;
}

/// An address may be longer than the page is wide; it breaks behind its slashes only where it is told to.
QString breakable(QString address) {
  constexpr QChar zeroWidthSpace(0x200B);
  for (const QChar mark : {u'/', u'&', u'?'})
    address.replace(mark, QString(mark) + zeroWidthSpace);
  return address;
}

} // namespace

ImageryView::ImageryView(QWidget* parent, const Clock& clock, const Shutdown& shutdown, Guard guard)
    : QStackedWidget(parent), clock_(clock), guard_(std::move(guard)),
      inet_(std::make_shared<NetInet>(makeNetwork(), shutdown)), picture_(new PictureView(this)) {
  setObjectName(u"WebBrowser"_s);
  setAccessibleName(u"画像"_s);
  picture_->setObjectName(u"picture"_s);
  picture_->setAccessibleName(u"画像"_s);
  picture_->setFocusPolicy(Qt::StrongFocus);
  inet_->setRequestTimeout(answerSeconds);
  addWidget(picture_);
  failure_ = makeFailurePage();
  addWidget(failure_);
}

ImageryView::~ImageryView() {
  ++request_;
  inet_->cancel();
}

QWidget* ImageryView::makeFailurePage() {
  auto* page = new QWidget(this);
  page->setObjectName(u"noAnswer"_s);
  page->setAccessibleName(u"表示できません"_s);
  auto* layout = new QVBoxLayout(page);
  layout->setSpacing(14);
  layout->setContentsMargins(24, 24, 24, 24);
  layout->addStretch();
  addLine(page, u"lblState"_s, u"状態"_s)->setText(u"表示できません"_s);
  sourceName_ = addLine(page, u"lblSource"_s, u"提供元"_s);
  sourceAddress_ = addLine(page, u"lblAddress"_s, u"アドレス"_s);
  sourceNote_ = addLine(page, u"lblNote"_s, u"説明"_s);
  again_ = new QPushButton(u"再試行"_s, page);
  again_->setObjectName(u"cmdRetry"_s);
  again_->setAccessibleName(u"再試行"_s);
  page->setFocusProxy(again_);
  connect(again_, &QPushButton::clicked, this, [this] { guard_([this] { refresh(); }); });
  layout->addWidget(again_, 0, Qt::AlignHCenter);
  layout->addStretch();
  return page;
}

void ImageryView::describe(const QString& title) {
  picture_->setAccessibleName(title.trimmed());
}

void ImageryView::open(const ImageryTarget& target) {
  target_ = target;
  refresh();
}

void ImageryView::refresh() {
  stop();
  url_ = QUrl();
  if (!target_.row.isAvailable())
    showFailure();
  else if (target_.row.kind == ImageRow::Kind::Page)
    openPage();
  else
    fetch();
}

void ImageryView::stop() {
  ++request_;
  inet_->cancel();
  if (browser_)
    browser_->stopPage();
}

void ImageryView::fetch() {
  const QPointer<ImageryView> self(this);
  const std::shared_ptr<NetInet> inet = inet_;
  const int request = request_;
  const FetchedImage found = fetchImage(*inet, target_.row, clock_.now());
  if (!self || request != request_)
    return;
  url_ = found.address;
  if (!found.ok() || !showFound(found)) {
    showFailure();
    return;
  }
  time_ = found.time;
  settle(picture_);
}

bool ImageryView::showFound(const FetchedImage& found) {
  if (target_.row.kind == ImageRow::Kind::Picture)
    return picture_->showPictures(found.layers);
  auto* reader = moduleOf<PdfReader>(u"soran-pdf"_s);
  constexpr int largestSide = 3000;
  const QImage image = reader ? reader->draw(found.layers.front(), largestSide) : QImage();
  if (!image.isNull())
    picture_->showImage(image);
  return !image.isNull();
}

void ImageryView::openPage() {
  if (!browser_) {
    browser_ = new BrowserFrame(this);
    browser_->setObjectName(u"page"_s);
    browser_->setAccessibleName(u"ウェブページ"_s);
    addWidget(browser_);
    connect(browser_, &BrowserFrame::pageState, this, &ImageryView::onPageState);
  }
  url_ = imageAddress(target_.row, target_.row.layers.first(), {});
  browser_->open(url_.toString());
}

void ImageryView::onPageState(WebPage::State state) {
  // A page that was left for a picture has nothing to say any more.
  if (target_.row.kind != ImageRow::Kind::Page)
    return;
  if (state == WebPage::State::Started)
    setCurrentWidget(browser_);
  else if (state == WebPage::State::Completed)
    settle(browser_);
  else
    showFailure();
}

void ImageryView::settle(QWidget* page) {
  setCurrentWidget(page);
  if (isActiveWindow())
    page->setFocus();
  emit settled();
}

void ImageryView::showFailure() {
  const QString howToName =
      u"\nアドレスが分かるときは、endpoints.ini の %1 か imagery.ini の [%2] に指定してください."_s;
  const ImageRow& row = target_.row;
  const ImagerySource* source = findImagerySource(target_.source);
  const QString name = source ? source->name.toString() : target_.source;
  sourceName_->setText(row.from.isEmpty() ? name : name + u" - " + row.from);
  sourceAddress_->setText(breakable(row.isAvailable() ? url_.toString() : target_.path));
  sourceNote_->setText(row.isAvailable() ? u"サーバーが応答しないか、画像がありません."_s
                                         : row.reason + howToName.arg(target_.source, row.key));
  again_->setVisible(row.isAvailable());
  settle(failure_);
}

QString ImageryView::note() const {
  return currentWidget() == picture_ && picture_->hasPicture() ? imageNote(target_.row, time_, clock_.now())
                                                               : QString();
}

bool ImageryView::isOld() const {
  return !note().isEmpty() && soran::isOld(time_, target_.row.period, clock_.now());
}

bool ImageryView::print(QPrinter& printer) {
  QPainter painter;
  if (!painter.begin(&printer))
    return false;
  const QRectF page(QPointF(0, 0), printer.pageLayout().paintRectPixels(printer.resolution()).size());
  if (currentWidget() == picture_) {
    picture_->paintInto(painter, page);
    return painter.end();
  }
  const QPixmap seen = currentWidget()->grab();
  QRectF place(QPointF(), QSizeF(seen.size()).scaled(page.size(), Qt::KeepAspectRatio));
  place.moveCenter(page.center());
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawPixmap(place, seen, QRectF(seen.rect()));
  return painter.end();
}

} // namespace soran
