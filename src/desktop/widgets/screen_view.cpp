// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/widgets/screen_view.h"

#include "base/text.h"
#include "desktop/widgets/look.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QTextBlock>
#include <QToolTip>

#include <algorithm>
#include <array>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

constexpr QChar backspace = u'\b';
constexpr QChar enterKey = u'\r';
constexpr QChar escape = u'\x1B';

QChar specialKey(int key) {
  switch (key) {
  case Qt::Key_Escape:
    return escape;
  case Qt::Key_Backspace:
    return backspace;
  case Qt::Key_Return:
  case Qt::Key_Enter:
    return enterKey;
  default:
    return {};
  }
}

/// Keys that move over the text without changing it.
bool movesOverText(int key) {
  constexpr std::array keys = {Qt::Key_Up,   Qt::Key_Down, Qt::Key_Left,   Qt::Key_Right,
                               Qt::Key_Home, Qt::Key_End,  Qt::Key_PageUp, Qt::Key_PageDown};
  return std::find(keys.begin(), keys.end(), key) != keys.end();
}

/// True where a stretch without a blank is longer than any word of a report.
bool holdsEndlessWord(QStringView text) {
  constexpr qsizetype longestWord = 4096;
  qsizetype length = 0;
  return std::any_of(text.begin(), text.end(), [&length](QChar c) {
    length = c.isSpace() ? 0 : length + 1;
    return length > longestWord;
  });
}

QTextCharFormat formatOf(const AttributeRun& run) {
  QTextCharFormat format;
  format.setForeground(toQColor(run.colour));
  format.setFontWeight(run.bold ? QFont::Bold : QFont::Normal);
  return format;
}

} // namespace

ScreenView::ScreenView(QWidget* parent) : QPlainTextEdit(parent) {
  setUndoRedoEnabled(false);
  setReadOnly(true);
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  setFrameShape(QFrame::NoFrame);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setTabChangesFocus(true);
  setAttribute(Qt::WA_InputMethodEnabled, false);
  document()->setDocumentMargin(2);
  verticalScrollBar()->setAccessibleName(u"画面のスクロール"_s);
}

void ScreenView::show(const Screen& screen) {
  release();
  screen_ = &screen;
  connect(&screen, &Screen::replaced, this, &ScreenView::replaceText);
  connect(&screen, &Screen::appended, this, &ScreenView::appendText);
  connect(&screen, &Screen::attributesChanged, this, [this] { showAttributes(); });
  connect(&screen, &Screen::caretMoved, this, &ScreenView::showCaret);
  replaceText();
  showCaret();
}

void ScreenView::release() {
  if (screen_)
    screen_->disconnect(this);
  screen_ = nullptr;
}

std::pair<qsizetype, qsizetype> ScreenView::selectedStretch() const {
  const QTextCursor cursor = textCursor();
  const qsizetype start = positions_.toScreen(cursor.selectionStart());
  return {start, positions_.toScreen(cursor.selectionEnd()) - start};
}

void ScreenView::wrapFor(QStringView text) {
  // Each line of an endless word is looked through to its end for a place to break at: megabytes of garbage
  // would hold the window for hours.
  const QTextOption::WrapMode mode =
      holdsEndlessWord(text) ? QTextOption::WrapAnywhere : QTextOption::WrapAtWordBoundaryOrAnywhere;
  if (mode != wordWrapMode())
    setWordWrapMode(mode);
}

void ScreenView::replaceText() {
  // The former text is not to be laid out in the way of the new one.
  clear();
  wrapFor(screen_->text());
  positions_.clear();
  positions_.extend(screen_->text(), 0);
  setPlainText(screen_->text());
  showAttributes();
}

void ScreenView::appendText(qsizetype from) {
  const QString& text = screen_->text();
  // A line end whose halves came apart must be read as one.
  if (from > 0 && text[from - 1] == u'\r' && text[from] == u'\n') {
    replaceText();
    return;
  }
  if (holdsEndlessWord(QStringView(text).sliced(from)))
    wrapFor(text);
  positions_.extend(text, from);
  QTextCursor cursor(document());
  cursor.movePosition(QTextCursor::End);
  cursor.insertText(text.mid(from));
  showAttributes(from);
}

QList<QTextLayout::FormatRange> ScreenView::formatsOf(const QTextBlock& block, size_t& run) const {
  const std::vector<AttributeRun>& runs = screen_->runs();
  const qsizetype begin = positions_.toScreen(block.position());
  const qsizetype end = begin + block.length() - 1;
  QList<QTextLayout::FormatRange> formats;
  while (run < runs.size() && runs[run].start + runs[run].length <= begin)
    ++run;
  for (size_t i = run; i < runs.size() && runs[i].start < end; ++i) {
    const qsizetype from = std::max(runs[i].start, begin);
    const qsizetype to = std::min(runs[i].start + runs[i].length, end);
    // The base look is that of the widget itself.
    if (from < to && (runs[i].colour != screen_->baseColour() || runs[i].bold != screen_->baseBold()))
      formats.append({static_cast<int>(from - begin), static_cast<int>(to - from), formatOf(runs[i])});
  }
  return formats;
}

void ScreenView::showAttributes(qsizetype from) {
  size_t run = 0;
  int dirtyFrom = -1;
  int dirtyTo = -1;
  for (QTextBlock block = document()->findBlock(static_cast<int>(positions_.toWidget(from))); block.isValid();
       block = block.next()) {
    QList<QTextLayout::FormatRange> formats = formatsOf(block, run);
    if (formats == block.layout()->formats())
      continue;
    block.layout()->setFormats(formats);
    if (dirtyFrom < 0)
      dirtyFrom = block.position();
    dirtyTo = block.position() + block.length();
  }
  if (dirtyFrom >= 0)
    document()->markContentsDirty(dirtyFrom, dirtyTo - dirtyFrom);
}

void ScreenView::showCaret() {
  QTextCursor cursor(document());
  cursor.setPosition(static_cast<int>(positions_.toWidget(screen_->caret())));
  setTextCursor(cursor);
  if (screen_->caret() == 0)
    verticalScrollBar()->setValue(0);
  else
    ensureCursorVisible();
}

void ScreenView::typeCharacters(QStringView text) {
  for (const QChar c : asciiUpper(text)) {
    if (c.isPrint())
      emit keyTyped(c);
  }
}

void ScreenView::keyPressEvent(QKeyEvent* event) {
  const bool command = event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
  if (event->matches(QKeySequence::Copy)) {
    copy();
  } else if (event->matches(QKeySequence::Paste)) {
    insertFromMimeData(QGuiApplication::clipboard()->mimeData());
  } else if (event->matches(QKeySequence::SelectAll)) {
    selectAll();
  } else if (movesOverText(event->key())) {
    QPlainTextEdit::keyPressEvent(event);
  } else if (const QChar key = specialKey(event->key()); !key.isNull() && !command) {
    emit keyTyped(key);
  } else if (!command && !event->text().isEmpty() && event->text().front().isPrint()) {
    typeCharacters(event->text());
  } else {
    event->ignore();
  }
}

// Composed characters (dead keys) come this way although the input method is closed.
void ScreenView::inputMethodEvent(QInputMethodEvent* event) {
  typeCharacters(event->commitString());
}

QVariant ScreenView::inputMethodQuery(Qt::InputMethodQuery query) const {
  return query == Qt::ImEnabled ? QVariant(false) : QPlainTextEdit::inputMethodQuery(query);
}

bool ScreenView::canInsertFromMimeData(const QMimeData* source) const {
  return source->hasText();
}

void ScreenView::insertFromMimeData(const QMimeData* source) {
  if (!source || !source->hasText())
    return;
  const QString text = source->text();
  const auto end = std::find_if(text.begin(), text.end(), [](QChar c) { return c == u'\r' || c == u'\n'; });
  // Longer than any list of codes that a line is for.
  constexpr qsizetype longestLine = 4000;
  typeCharacters(QStringView(text.begin(), end).first(std::min<qsizetype>(longestLine, end - text.begin())));
}

void ScreenView::contextMenuEvent(QContextMenuEvent* event) {
  event->accept();
}

bool ScreenView::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip)
    return QPlainTextEdit::viewportEvent(event);
  const auto help = static_cast<QHelpEvent*>(event);
  QToolTip::showText(help->globalPos(),
                     noteAt_(positions_.toScreen(cursorForPosition(help->pos()).position())), viewport());
  return true;
}

void ScreenView::mousePressEvent(QMouseEvent* event) {
  QPlainTextEdit::mousePressEvent(event);
  emit mousePressed(event->button(), event->globalPosition().toPoint());
}

void ScreenView::mouseReleaseEvent(QMouseEvent* event) {
  QPlainTextEdit::mouseReleaseEvent(event);
  if (event->button() == Qt::LeftButton)
    emit selectionReleased(event->globalPosition().toPoint());
}

} // namespace soran
