// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/widgets/look.h"

#include "desktop/widgets/terminal_style.h"

#include <QApplication>
#include <QBoxLayout>
#include <QFontDatabase>
#include <QFrame>
#include <QLabel>
#include <QLibraryInfo>
#include <QPalette>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTranslator>
#include <QWidget>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

constexpr int formPoints = 10;
constexpr QRgb frameColour = 0xFF4A5660;

/// Grounds and inks of everything around the screen. Dim enough for the night, 4.5 to 1 or better on each
/// other.
constexpr std::pair<QPalette::ColorRole, QRgb> roles[] = {
    {QPalette::Window, 0xFF14181C},
    {QPalette::WindowText, 0xFFC8D0D6},
    {QPalette::Base, 0xFF000000},
    {QPalette::AlternateBase, 0xFF0B0E11},
    {QPalette::Text, 0xFFE6EAED},
    {QPalette::Button, 0xFF20262B},
    {QPalette::ButtonText, 0xFFC8D0D6},
    {QPalette::BrightText, 0xFFFFFFFF},
    {QPalette::Light, 0xFF39424A},
    {QPalette::Midlight, 0xFF2C343A},
    {QPalette::Mid, 0xFF39424A},
    {QPalette::Dark, 0xFF39424A},
    {QPalette::Shadow, 0xFF000000},
    {QPalette::Highlight, 0xFF1F4E66},
    {QPalette::HighlightedText, 0xFFFFFFFF},
    {QPalette::ToolTipBase, 0xFF20262B},
    {QPalette::ToolTipText, 0xFFE6EAED},
    {QPalette::PlaceholderText, 0xFF7C868D},
    {QPalette::Link, 0xFF67DCFF},
};

} // namespace

QColor toQColor(Colour colour) {
  return {redOf(colour), greenOf(colour), blueOf(colour)};
}

QString installedFamily(const QString& wanted) {
  if (QFontDatabase::hasFamily(wanted))
    return wanted;
  for (const QString& family :
       {u"ＭＳ ゴシック"_s, u"MS Gothic"_s, u"IPAゴシック"_s, u"IPAGothic"_s, u"TakaoGothic"_s,
        u"VL Gothic"_s, u"Noto Sans Mono CJK JP"_s, u"Source Han Mono"_s}) {
    if (QFontDatabase::hasFamily(family))
      return family;
  }
  return QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
}

QFont terminalFont(const QString& family, int points, bool bold) {
  QFont font(installedFamily(family), points);
  font.setStyleHint(QFont::Monospace);
  font.setFixedPitch(true);
  font.setBold(bold);
  return font;
}

QIcon drawnIcon(const QString& name) {
  return QIcon(u":/icons/"_s + name + u".svg");
}

QIcon facedIcon(const QString& plain, const QString& coloured) {
  QIcon icon = drawnIcon(plain);
  icon.addFile(u":/icons/"_s + coloured + u".svg", {}, QIcon::Active);
  return icon;
}

QIcon programIcon(bool connected) {
  return drawnIcon(connected ? u"iconPic0"_s : u"iconPic1"_s);
}

void dressApplication(QApplication& application) {
  // The toolkit's own dialogues speak Japanese where its texts are installed.
  auto* texts = new QTranslator(&application);
  if (texts->load(u"qtbase_ja"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QApplication::installTranslator(texts);
  QApplication::setStyle(new TerminalStyle);
  QPalette palette;
  for (const auto& [role, colour] : roles)
    palette.setColor(role, QColor::fromRgba(colour));
  for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    palette.setColor(QPalette::Disabled, role, QColor(0x5C, 0x66, 0x6D));
  QApplication::setPalette(palette);
  QApplication::setFont(terminalFont(u"ＭＳ ゴシック"_s, formPoints));
  application.setWindowIcon(programIcon(true));
}

void showProgramName(QLabel& icon, QLabel& name) {
  constexpr int iconSize = 64;
  constexpr int namePoints = 22;
  icon.setPixmap(programIcon(true).pixmap(iconSize));
  name.setFont(terminalFont(u"ＭＳ ゴシック"_s, namePoints));
}

QPushButton* addBarButton(QBoxLayout& bar, const QString& caption, const QString& tip) {
  auto* button = new QPushButton(caption);
  button->setAutoDefault(false);
  button->setToolTip(u' ' + tip + u' ');
  bar.addWidget(button);
  return button;
}

void drawFrameOf(QFrame& frame) {
  QPalette palette = frame.palette();
  palette.setColor(QPalette::WindowText, QColor::fromRgba(frameColour));
  frame.setPalette(palette);
}

void paintLikeScreen(QWidget& widget, Colour ground, Colour text) {
  QPalette palette = widget.palette();
  for (const QPalette::ColorRole role : {QPalette::Window, QPalette::Base})
    palette.setColor(role, toQColor(ground));
  for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text})
    palette.setColor(role, toQColor(text));
  widget.setPalette(palette);
  widget.setAutoFillBackground(true);
}

void insertColoured(QPlainTextEdit& pane, const QString& text, const std::vector<AttributeRun>& runs) {
  QTextCursor cursor(pane.document());
  cursor.movePosition(QTextCursor::End);
  for (const AttributeRun& run : runs) {
    QTextCharFormat format;
    format.setForeground(toQColor(run.colour));
    format.setFontWeight(run.bold ? QFont::Bold : QFont::Normal);
    cursor.insertText(text.mid(run.start, run.length).remove(u'\r'), format);
  }
}

} // namespace soran
