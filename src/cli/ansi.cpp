// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/ansi.h"

#include "base/foreign_text.h"

#include <QStringList>
#include <algorithm>
#include <array>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

/// The sixteen colours as most terminals show them.
constexpr std::array<Colour, 16> palette = {
    colourOf(0, 0, 0),       colourOf(205, 0, 0),   colourOf(0, 205, 0),   colourOf(205, 205, 0),
    colourOf(0, 0, 238),     colourOf(205, 0, 205), colourOf(0, 205, 205), colourOf(229, 229, 229),
    colourOf(127, 127, 127), colourOf(255, 0, 0),   colourOf(0, 255, 0),   colourOf(255, 255, 0),
    colourOf(92, 92, 255),   colourOf(255, 0, 255), colourOf(0, 255, 255), colourOf(255, 255, 255)};

int distance(Colour a, Colour b) {
  const int r = redOf(a) - redOf(b);
  const int g = greenOf(a) - greenOf(b);
  const int blue = blueOf(a) - blueOf(b);
  return r * r + g * g + blue * blue;
}

int nearestOfSixteen(Colour colour) {
  const auto nearest = std::min_element(palette.begin(), palette.end(), [colour](Colour a, Colour b) {
    return distance(a, colour) < distance(b, colour);
  });
  return int(nearest - palette.begin());
}

/// The index in the table of 256 colours: a cube of six levels a part, and a scale of greys.
int nearestIndex(Colour colour) {
  constexpr std::array<int, 6> levels = {0, 95, 135, 175, 215, 255};
  const auto level = [&](int part) {
    const auto nearest = std::min_element(levels.begin(), levels.end(), [part](int a, int b) {
      return std::abs(a - part) < std::abs(b - part);
    });
    return int(nearest - levels.begin());
  };
  const int r = level(redOf(colour));
  const int g = level(greenOf(colour));
  const int b = level(blueOf(colour));
  const int mean = (redOf(colour) + greenOf(colour) + blueOf(colour)) / 3;
  const int step = std::clamp((mean - 3) / 10, 0, 23);
  const int shade = 8 + 10 * step;
  const bool greyIsNearer =
      distance(colourOf(shade, shade, shade), colour) <
      distance(colourOf(levels[size_t(r)], levels[size_t(g)], levels[size_t(b)]), colour);
  return greyIsNearer ? 232 + step : 16 + 36 * r + 6 * g + b;
}

QByteArray colourParameters(Colour colour, ColourDepth depth) {
  const auto number = [](int value) { return QByteArray::number(value); };
  switch (depth) {
  case ColourDepth::None:
    break;
  case ColourDepth::Sixteen: {
    const int index = nearestOfSixteen(colour);
    return number(index < 8 ? 30 + index : 90 + index - 8);
  }
  case ColourDepth::Indexed:
    return "38;5;" + number(nearestIndex(colour));
  case ColourDepth::True:
    return "38;2;" + number(redOf(colour)) + ';' + number(greenOf(colour)) + ';' + number(blueOf(colour));
  }
  return {};
}

bool hasShape(char32_t c) {
  return QChar::isPrint(c) && !isMisleading(c);
}

} // namespace

TerminalStyle terminalStyle(const QByteArray& term, const QByteArray& colorTerm, const QByteArray& noColor) {
  if (term.isEmpty() || term == "dumb" || term == "unknown")
    return {};
  const bool monochrome = term.endsWith("-m") || term.endsWith("-mono") || term.startsWith("vt1") ||
                          term.startsWith("vt2") || term.startsWith("vt3");
  if (!noColor.isEmpty() || monochrome)
    return {ColourDepth::None, true};
  if (colorTerm == "truecolor" || colorTerm == "24bit")
    return {ColourDepth::True, true};
  return {term.contains("256color") ? ColourDepth::Indexed : ColourDepth::Sixteen, true};
}

QByteArray attributeCode(Colour colour, bool bold, Colour base, TerminalStyle style) {
  QByteArray parameters;
  if (bold && style.attributes)
    parameters = "1";
  if (colour != base && style.depth != ColourDepth::None) {
    if (!parameters.isEmpty())
      parameters += ';';
    parameters += colourParameters(colour, style.depth);
  }
  return parameters.isEmpty() ? QByteArray() : "\x1B[" + parameters + 'm';
}

QByteArray dimCode(TerminalStyle style) {
  return style.attributes ? "\x1B[2m" : QByteArray();
}

QByteArray boldCode(TerminalStyle style) {
  return style.attributes ? "\x1B[1m" : QByteArray();
}

QByteArray attributed(const QByteArray& code, const QByteArray& text) {
  return code.isEmpty() ? text : code + text + "\x1B[0m";
}

QString printable(QStringView text) {
  QString shown;
  shown.reserve(text.size());
  // Half of a surrogate pair comes out of the conversion as U+FFFD.
  for (const uint c : text.toUcs4()) {
    if (c == U'\t')
      shown += u' ';
    else if (c != QChar::ReplacementCharacter && hasShape(c))
      shown += QChar::fromUcs4(c);
    else
      shown += maskedCharacter;
  }
  return shown;
}

QStringList linesOf(const QString& text) {
  QString lines = text;
  return lines.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n').split(u'\n');
}

qsizetype lineEndLength(QStringView text, qsizetype at) {
  if (at >= text.size() || (text[at] != u'\r' && text[at] != u'\n'))
    return 0;
  return text[at] == u'\r' && at + 1 < text.size() && text[at + 1] == u'\n' ? 2 : 1;
}

QByteArray ansiText(const QString& text, qsizetype from, const std::vector<AttributeRun>& runs, Colour base,
                    TerminalStyle style, const std::vector<SoftBreak>& breaks) {
  QByteArray out;
  qsizetype i = from;
  auto next = breaks.begin();
  const auto isBreak = [&](qsizetype at) { return next != breaks.end() && at == next->at; };
  for (const AttributeRun& run : runs) {
    const qsizetype end = std::min(run.start + run.length, text.size());
    const QByteArray code = attributeCode(run.colour, run.bold, base, style);
    while (i < end) {
      if (const qsizetype lineEnd = lineEndLength(text, i)) {
        out += '\n';
        i += lineEnd;
        continue;
      }
      if (isBreak(i)) {
        out += '\n' + QByteArray(next->indent, ' ');
        i = next->behind;
        ++next;
        continue;
      }
      qsizetype to = i;
      while (to < end && lineEndLength(text, to) == 0 && !isBreak(to))
        ++to;
      out += attributed(code, printable(QStringView(text).sliced(i, to - i)).toUtf8());
      i = to;
    }
  }
  return out;
}

} // namespace soran
