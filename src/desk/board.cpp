// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desk/board.h"

#include "base/text.h"
#include "desk/board_cells.h"

#include <algorithm>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

struct ColumnSpec {
  QStringView heading;
  int need; ///< a column of a greater number goes first where there is no room
  QString (*cell)(const BoardRow&, const QDateTime&);
};

template <int place>
QString outlookCell(const BoardRow& row, const QDateTime&) {
  return cell::outlook(row, place);
}

// In the order of BoardColumn.
constexpr ColumnSpec specs[] = {
    {u"ST", 0, cell::state},       {u"ALARM", 1, cell::alarm},   {u"AP", 0, cell::code},
    {u"NAME", 10, cell::name},     {u"REPORT", 4, cell::report}, {u"AGE", 1, cell::age},
    {u"WIND", 2, cell::wind},      {u"RWY", 4, cell::runway},    {u"VIS/RVR", 1, cell::visibility},
    {u"WX", 2, cell::weather},     {u"CIG", 1, cell::ceiling},   {u"T/TD", 6, cell::temperatures},
    {u"QNH", 5, cell::qnh},        {u"1H", 7, outlookCell<0>},   {u"3H", 7, outlookCell<1>},
    {u"6H", 3, outlookCell<2>},    {u"SIGMET", 8, cell::sigmet}, {u"SOURCE", 9, cell::source},
    {u"CHANGE", 6, cell::changes},
};
static_assert(std::size(specs) == boardColumnCount);

const ColumnSpec& specOf(BoardColumn column) {
  return specs[size_t(column)];
}

QString padded(const QString& text, int width) {
  return text + QString(std::max(0, width - displayWidth(text)), u' ');
}

/// The cells of all rows under their heading, with the width of each column.
struct Grid {
  std::vector<QStringList> lines;
  std::array<int, boardColumnCount> widths = {};

  Grid(const std::vector<BoardRow>& rows, const QDateTime& now) {
    add([](BoardColumn column) { return headingOf(column); });
    for (const BoardRow& row : rows)
      add([&](BoardColumn column) { return cellOf(row, column, now); });
  }

  template <class Cell>
  void add(Cell cell) {
    QStringList line;
    for (int i = 0; i < boardColumnCount; ++i) {
      line.append(cell(BoardColumn(i)));
      widths[size_t(i)] = std::max(widths[size_t(i)], displayWidth(line.last()));
    }
    lines.push_back(std::move(line));
  }

  /// A column of which no row has anything takes no room.
  bool isEmpty(int column) const {
    return std::all_of(lines.begin() + 1, lines.end(),
                       [=](const QStringList& line) { return line[column].isEmpty(); });
  }

  std::vector<int> fitting(int columns) const {
    std::vector<int> shown;
    int width = -1;
    for (int i = 0; i < boardColumnCount; ++i) {
      if (!isEmpty(i)) {
        shown.push_back(i);
        width += widths[size_t(i)] + 1;
      }
    }
    while (width > columns && shown.size() > 1) {
      const auto least =
          std::ranges::max_element(shown, {}, [](int column) { return specs[size_t(column)].need; });
      width -= widths[size_t(*least)] + 1;
      shown.erase(least);
    }
    return shown;
  }
};

} // namespace

int BoardRow::outlookLevel() const {
  const auto& last = outlook.back();
  return last ? last->worst.level : 0;
}

int rankOf(const BoardRow& row) {
  const bool ringing = row.alarm.state == AlarmState::Ringing && !row.alarm.muted;
  int rank = std::max(row.level() * 20, row.outlookLevel() * 20 - 10);
  if (row.freshness == Freshness::Overdue || row.hasNoData())
    rank = std::max(rank, 8) + 2;
  if (row.tafIsSilent())
    rank = std::max(rank, 6) + 1;
  // Whatever nobody has seen stands above what is silent.
  if (ringing)
    rank = std::max(rank, 15);
  return rank * 2 + (ringing ? 5 : 0);
}

void sortWorstFirst(std::vector<BoardRow>& rows) {
  std::ranges::stable_sort(rows, std::ranges::greater(), rankOf);
}

QString headingOf(BoardColumn column) {
  return specOf(column).heading.toString();
}

QString cellOf(const BoardRow& row, BoardColumn column, const QDateTime& now) {
  return specOf(column).cell(row, now);
}

QString boardText(const std::vector<BoardRow>& rows, int columns, const QDateTime& now) {
  const Grid grid(rows, now);
  const std::vector<int> shown = grid.fitting(columns);
  QStringList lines;
  for (const QStringList& cells : grid.lines) {
    QString line;
    for (const int column : shown)
      line += padded(cells[column], grid.widths[size_t(column)]) + u' ';
    while (line.endsWith(u' '))
      line.chop(1);
    lines.append(line);
  }
  return lines.join(crlf.toString());
}

} // namespace soran
