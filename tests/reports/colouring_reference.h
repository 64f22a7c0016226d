// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/colour.h"
#include "base/text.h"
#include "reports/colouring_words.h"
#include "store/settings_record.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <ostream>
#include <vector>

namespace soran {
inline void PrintTo(const AttributeRun& run, std::ostream* out) {
  *out << '[' << run.start << ' ' << run.length << ' ' << qint32(run.colour) << (run.bold ? " bold]" : "]");
}
} // namespace soran

/// The colouring as a person would do it with a pen: one word after the other, each searched from the top,
/// each hit painted unit by unit. Slow, and free of anything that the program uses to be quick.
class ColouringReference {
 public:
  ColouringReference(QStringView text, const soran::SettingsRecord& settings)
      : text_(text), set_(settings),
        colour_(text.size(), set_[soran::key::表示文字の色].value_or(soran::black)),
        bold_(text.size(), false) {}

  void write(const std::vector<soran::AttributeRun>& before) {
    for (const auto& run : before) {
      select(run.start + 1, run.length, run.colour);
      embolden(run.start + 1, run.length, run.bold);
    }
  }

  std::vector<soran::AttributeRun> runs(QStringView codes, QStringView group) {
    using namespace soran;
    if (set_[key::天気略語着色] == true) {
      for (const auto& weatherWord : colouring::weatherWords)
        weather(weatherWord.word);
    }
    if (set_[key::SPECI着色] == true) {
      for (const auto& [word, behind] : colouring::kindWords)
        each(word, word.size(), [&](qsizetype p) { select(p, word.size() + behind, set_[key::SPECIの色]); });
    }
    if (set_[key::計器気象状態を強調] == true) {
      if (set_[key::CBTCUを強調] == true) {
        weather(u"CB");
        weather(u"TCU");
      }
      if (set_[key::条件1有効] == true)
        condition(set_[key::雲高1], set_[key::雲高1の色], set_[key::鉛直視程1有効], set_[key::視程1],
                  set_[key::視程1の色]);
      if (set_[key::条件2有効] == true)
        condition(set_[key::雲高2], set_[key::雲高2の色], set_[key::鉛直視程2有効], set_[key::視程2],
                  set_[key::視程2の色]);
      if (set_[key::条件3有効] == true)
        condition(set_[key::雲高3], set_[key::雲高3の色], set_[key::鉛直視程3有効], set_[key::視程3],
                  set_[key::視程3の色]);
    }
    each(u"LOADING", 30, [&](qsizetype p) { select(p, 30, soran::yellow); });
    for (const QStringView word : colouring::restoredWords)
      restore(word);
    if (!group.isEmpty())
      restore(group);
    if (codes.size() >= 2) {
      for (const QString& code : codes.sliced(1).toString().split(u' ')) {
        if (!code.isEmpty())
          restore(code);
      }
    }
    each(u"*** LAST KNOWN", 14, [&](qsizetype p) {
      const qsizetype end = text_.indexOf(u'\r', p - 1);
      const qsizetype length = (end < 0 ? text_.size() : end) - (p - 1);
      select(p, length, soran::red);
      embolden(p, length, true);
    });
    return merged();
  }

 private:
  using Limit = std::optional<int>;
  using OptionalColour = std::optional<soran::Colour>;

  QStringView mid(qsizetype p, qsizetype length) const {
    return soran::mid1(text_, soran::Position1::at(p), length);
  }
  double number(qsizetype p, qsizetype length) const { return soran::leadingNumber(mid(p, length)); }

  void select(qsizetype p, qsizetype length, OptionalColour colour) {
    for (qsizetype i = p; colour && i < p + length && i <= text_.size(); ++i)
      colour_[static_cast<size_t>(i - 1)] = *colour;
  }
  void embolden(qsizetype p, qsizetype length, bool bold) {
    for (qsizetype i = p; i < p + length && i <= text_.size(); ++i)
      bold_[static_cast<size_t>(i - 1)] = bold;
  }

  qsizetype find(QStringView word, qsizetype from) const {
    return soran::find1(text_, word, soran::Position1::at(from)).from1();
  }

  void each(QStringView word, qsizetype step, const std::function<void(qsizetype)>& hit) const {
    for (qsizetype p = find(word, 1); p > 0; p = find(word, p + step))
      hit(p);
  }

  void weather(QStringView word) {
    each(word, word.size(), [&](qsizetype p) {
      const bool sign = mid(p - 1, 1) == u"+" || mid(p - 1, 1) == u"-";
      const qsizetype from = sign ? p - 1 : p;
      const qsizetype length = sign ? word.size() + 1 : word.size();
      const bool cloud = word == u"CB" || word == u"TCU";
      select(from, length, cloud || word == u"WS" ? soran::red : set_[soran::key::天気略語の色]);
      if (cloud)
        embolden(from, length, true);
    });
  }

  void condition(Limit feet, OptionalColour low, std::optional<bool> vertical, Limit metres,
                 OptionalColour poor) {
    const auto below = [](double value, Limit limit, double unit) { return limit && value < *limit / unit; };
    for (const QStringView word : {u"BKN", u"OVC"}) {
      each(word, 6, [&](qsizetype p) {
        if (mid(p + 3, 3) != u"///" && below(number(p + 3, 3), feet, 100))
          select(p, 6, low);
      });
    }
    for (const QStringView word : {u"CU", u"ST"}) {
      each(word, 6, [&](qsizetype p) {
        if (number(p - 1, 1) >= 5 && below(number(p + 2, 3), feet, 100))
          select(p - 1, 6, low);
      });
    }
    if (vertical == true) {
      each(u"VV", 5, [&](qsizetype p) {
        if (below(number(p + 2, 3), feet, 100))
          select(p, 5, low);
      });
    }
    each(u" ", 4, [&](qsizetype p) {
      if (mid(p - 4, 4) == u"FCST" || mid(p - 4, 4) == u"NEXT" || mid(p - 5, 5) == u"BECMG" ||
          mid(p - 5, 5) == u"TEMPO")
        return;
      if (mid(p + 5, 1) == u" " && figures(mid(p + 1, 4)) && below(number(p + 1, 4), metres, 1))
        select(p + 1, 4, poor);
    });
    each(u"R", 8, [&](qsizetype p) {
      if (mid(p + 3, 1) != u"/" && mid(p + 4, 1) != u"/")
        return;
      const qsizetype blank = find(u" ", p);
      const QStringView word = blank > 0 ? mid(p, blank - p) : mid(p, -1);
      for (qsizetype i = 1; i <= word.size() - 3; ++i) {
        if (figures(word.sliced(i - 1, 4)) && below(number(p + i - 1, 4), metres, 1))
          select(p + i - 1, 4, poor);
      }
    });
  }

  static bool figures(QStringView group) {
    return group.size() == 4 && std::all_of(group.begin(), group.end(), soran::isAsciiDigit);
  }

  void restore(QStringView word) {
    each(word, word.size(), [&](qsizetype p) {
      if (word == u" -" && number(p + 2, 1) == 0 && mid(p + 2, 1) != u" ")
        return;
      embolden(p, word.size(), false);
      select(p, word.size(), set_[soran::key::表示文字の色]);
    });
  }

  std::vector<soran::AttributeRun> merged() const {
    std::vector<soran::AttributeRun> runs;
    for (size_t i = 0; i < colour_.size(); ++i) {
      if (i > 0 && runs.back().colour == colour_[i] && runs.back().bold == bold_[i])
        ++runs.back().length;
      else
        runs.push_back({static_cast<qsizetype>(i), 1, colour_[i], bold_[i]});
    }
    return runs;
  }

  QStringView text_;
  const soran::SettingsRecord& set_;
  std::vector<soran::Colour> colour_;
  std::vector<bool> bold_;
};
