// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/session.h"

#include "forms/list_rules.h"
#include "imagery/cameras.h"
#include "imagery/chart_catalogue.h"
#include "reports/airport_limits.h"
#include "start/opening.h"
#include "terminal/actions.h"
#include "terminal/picture_lookup.h"

#include <QHash>
#include <algorithm>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

QChar keyOf(const QString& name) {
  static const QHash<QString, QChar> keys = {
      {u"Enter"_s, u'\r'}, {u"Backspace"_s, u'\b'}, {u"Escape"_s, u'\x1B'}};
  const auto key = keys.constFind(name);
  if (key == keys.constEnd())
    throw InputError(u"unknown key \""_s + name + u'"');
  return *key;
}

QJsonArray sourcesJson(const Program& program) {
  QJsonArray sources;
  size_t place = 0;
  for (const ReportSource& source : program.services.endpoints.reportSources())
    sources.append(
        QJsonObject{{u"name"_s, source.name},
                    {u"away"_s, program.sourceHealth.isAway(place++, program.services.clock.now())}});
  return sources;
}

/// An object from the codes of the last run to what `tell` tells of the METAR and of the TAF; null where a
/// report was refused.
template <class Tell>
QJsonObject servedJson(const Program& program, Tell tell) {
  QJsonObject served;
  for (const auto& [code, by] : program.servedBy) {
    const auto value = [&tell, &source = by](size_t kind) {
      return source.names[kind].isEmpty() ? QJsonValue() : QJsonValue(tell(source, kind));
    };
    served.insert(code, QJsonArray{value(0), value(1)});
  }
  return served;
}

} // namespace

Session::Session(const LaunchOptions& options, DeliveredFile delivered, LineInput& input, QIODevice& output,
                 bool runs)
    : input_(input), output_(output), withRuns_(runs), launch_(options, timers_, std::move(delivered)),
      program_(launch_.services(headless_.frontEnd(*this))), terminal_(program_) {
  program_.services.startsModule = false;
  launch_.onRequest([this](const QUrl& url) {
    if (!url.path().endsWith(u".sig"))
      requests_.append(url.adjusted(QUrl::RemoveScheme | QUrl::RemoveAuthority).toString(QUrl::FullyEncoded));
  });
  headless_.onForm = [this](const Form& shown) {
    if (std::holds_alternative<form::Picture>(shown))
      takePicture(program_.services);
  };
}

Session::~Session() = default;

int Session::run() {
  Opening opening(program_);
  if (opening.start() != Opening::Result::Started)
    return endedAtOnce();
  try {
    terminal_.start(opening.notice());
  } catch (const Unwind&) {
    writeState();
    return status();
  }
  writeState();
  while (!terminal_.ended()) {
    if (handleNextLine()) {
      writeState();
    } else if (atEnd_) {
      terminal_.close();
      writeState();
    }
  }
  return status();
}

int Session::endedAtOnce() {
  QJsonObject line = state();
  line.insert(u"ended"_s, true);
  write(line);
  return notStarted;
}

/// The start waits for the Enter key: its state is told here, and the lines of the input are served.
void Session::until(const std::function<bool()>& done) {
  while (!done()) {
    writeState();
    while (!handleNextLine()) {
      if (atEnd_)
        terminal_.close();
      launch_.shutdown().check();
    }
    launch_.shutdown().check();
  }
}

/// False where the line was faulty, or where there is none.
bool Session::handleNextLine() {
  const std::optional<QByteArray> line = input_.next();
  if (!line) {
    atEnd_ = true;
    return false;
  }
  QJsonObject answer;
  try {
    const QJsonObject event = objectOf(*line);
    // No event has one, but whoever sends it looks for it.
    if (const auto id = event.constFind(u"id"_s); id != event.constEnd())
      answer.insert(u"id"_s, *id);
    handle(Fields(event));
    return true;
  } catch (const InputError& e) {
    answer.insert(u"error"_s, e.fault());
    write(answer);
    return false;
  }
}

void Session::handle(Fields event) {
  struct Kind {
    QStringView name;
    void (*act)(Session&, Fields&);
  };
  // Each action reads all its fields before it does anything.
  static constexpr Kind kinds[] = {
      {u"type",
       [](Session& s, Fields& f) {
         const QString line = f.text(u"type"_s);
         f.finish();
         s.type(line + u'\r');
       }},
      {u"keys",
       [](Session& s, Fields& f) {
         const QString keys = f.text(u"keys"_s);
         f.finish();
         s.type(keys);
       }},
      {u"key",
       [](Session& s, Fields& f) {
         const QChar key = keyOf(f.text(u"key"_s));
         f.finish();
         s.terminal_.handleKey(key);
       }},
      {u"tick",
       [](Session& s, Fields& f) {
         const int seconds = f.integer(u"tick"_s);
         f.finish();
         if (seconds < 0)
           throw InputError(u"\"tick\" is below zero"_s);
         s.tick(seconds);
       }},
      {u"menu",
       [](Session& s, Fields& f) {
         const QString name = f.text(u"menu"_s);
         const std::optional<int> index = f.integerIfThere(u"index"_s);
         f.finish();
         s.choose(name, index);
       }},
      {u"button",
       [](Session& s, Fields& f) {
         const int index = f.integer(u"button"_s);
         f.finish();
         if (!s.terminal_.menus().button(index))
           throw InputError(u"unknown button "_s + QString::number(index));
       }},
      {u"answer",
       [](Session& s, Fields& f) {
         const QStringList words = f.texts(u"answer"_s);
         f.finish();
         for (const QString& word : words) {
           if (word != u"yes" && word != u"no")
             throw InputError(u"an answer is \"yes\" or \"no\""_s);
         }
         for (const QString& word : words)
           s.headless_.answers.push_back(word == u"yes");
       }},
      {u"select",
       [](Session& s, Fields& f) {
         const QJsonArray range = f.array(u"select"_s);
         f.finish();
         if (range.size() != 2)
           throw InputError(u"\"select\" is not a start and a length"_s);
         const int start = wholeNumber(range[0], u"select"_s);
         const int length = wholeNumber(range[1], u"select"_s);
         if (start < 0 || length < 0)
           throw InputError(u"\"select\" is below zero"_s);
         s.terminal_.guarded([&] {
           if (QString tip = action::explainSelection(s.terminal_, start, length); !tip.isEmpty())
             s.tip_ = std::move(tip);
         });
       }},
      {u"set",
       [](Session& s, Fields& f) {
         const QJsonObject values = f.object(u"set"_s);
         f.finish();
         s.setSettings(values);
       }},
      {u"table", [](Session& s, Fields& f) { s.rewrite(f); }},
      {u"read",
       [](Session& s, Fields& f) {
         const QString table = f.text(u"read"_s);
         f.finish();
         try {
           s.rows_ = s.rowsOf(table);
         } catch (const StoreError& e) {
           throw InputError(u"cannot read: "_s + QString::fromUtf8(e.what()));
         }
       }},
      {u"minimise",
       [](Session& s, Fields& f) {
         const bool minimised = f.flag(u"minimise"_s);
         f.finish();
         s.terminal_.forms().setMinimised(minimised);
       }},
      {u"printer",
       [](Session& s, Fields& f) {
         const QStringList printers = f.texts(u"printer"_s);
         f.finish();
         s.headless_.printers = printers;
       }},
      {u"choose",
       [](Session& s, Fields& f) {
         const QJsonValue choice = f.any(u"choose"_s);
         f.finish();
         if (!choice.isNull() && !choice.isString())
           throw InputError(u"\"choose\" is neither a text nor null"_s);
         s.headless_.choices.push_back(choice.isNull() ? std::nullopt : std::optional(choice.toString()));
       }},
      {u"close",
       [](Session& s, Fields& f) {
         const bool close = f.flag(u"close"_s);
         f.finish();
         if (!close)
           throw InputError(u"\"close\" is not true"_s);
         s.terminal_.guarded([&s] { s.terminal_.closeBox(); });
       }},
  };
  for (const Kind& kind : kinds) {
    if (event.has(kind.name.toString()))
      return kind.act(*this, event);
  }
  throw InputError(u"unknown event"_s);
}

void Session::type(const QString& characters) {
  for (const QChar c : characters)
    terminal_.handleKey(c);
}

void Session::tick(int seconds) {
  for (int i = 0; i < seconds && !terminal_.ended(); ++i) {
    if (SetClock* clock = launch_.setClock())
      clock->advance(1);
    timers_.step();
  }
}

void Session::setSettings(const QJsonObject& values) {
  const auto read = settingValues(values);
  for (const auto& [index, value] : read) {
    const SettingSpec& spec = settingSpecs[static_cast<size_t>(index)];
    if (spec.type == SettingType::Integer)
      requireShort(value.toInt(), spec.column);
  }
  for (const auto& [index, value] : read)
    program_.settings().setValue(index, value);
  try {
    program_.settings().update();
  } catch (const StoreError& e) {
    throw InputError(u"cannot store: "_s + QString::fromUtf8(e.what()));
  }
}

void Session::rewriteLimits(Fields& event) {
  const QList<AirportLimits> rows = airportLimitsOf(event.array(u"rows"_s));
  event.finish();
  try {
    storeLimits(program_.tables, rows);
  } catch (const StoreError& e) {
    throw InputError(u"cannot store: "_s + QString::fromUtf8(e.what()));
  }
}

void Session::rewrite(Fields& event) {
  const QString table = event.text(u"table"_s);
  if (table == table::空港別制限)
    return rewriteLimits(event);
  const QList<QStringList> rows = textRows(event.array(u"rows"_s), u"rows"_s, 2);
  event.finish();
  std::vector<EditedRow> edited;
  for (const QStringList& row : rows)
    edited.emplace_back(row[0], row[1]);
  try {
    if (!storeList(program_.tables, table, edited))
      throw InputError(u"unknown list table \""_s + table + u'"');
  } catch (const StoreError& e) {
    throw InputError(u"cannot store: "_s + QString::fromUtf8(e.what()));
  }
}

QJsonArray Session::rowsOf(const QString& table) {
  const RowSet* set = program_.tables.byName(table);
  if (!set)
    throw InputError(u"unknown table \""_s + table + u'"');
  QJsonArray rows;
  for (int i = 0; i < set->recordCount(); ++i) {
    QJsonObject row;
    for (const QString& column : set->columns()) {
      const QVariant value = set->valueAt(i, column);
      const std::optional<SettingIndex> setting =
          table == table::設定 ? settingByColumn(column) : std::nullopt;
      if (setting)
        row.insert(column, settingJson(*setting, value));
      else if (value.typeId() == QMetaType::QByteArray)
        row.insert(column, QString::fromLatin1(value.toByteArray().toBase64()));
      else
        row.insert(column, QJsonValue::fromVariant(value));
    }
    rows.append(row);
  }
  return rows;
}

/// The main window's menus go before those of an open chart or camera. What these show is no part of the
/// state, so an item of theirs only has to exist.
void Session::choose(const QString& name, std::optional<int> index) {
  if (terminal_.menus().choose(name, index))
    return;
  const bool heading = std::ranges::count(chartSubmenus(), name, &ChartSubmenu::name) > 0;
  if (terminal_.forms().isOpen(form::Charts{}) && (findChartItem(name, index) || (heading && !index)))
    return;
  if (terminal_.forms().isOpen(form::Cameras{}) && !index && cameraView(name))
    return;
  throw InputError(u"unknown menu \""_s + name + u'"');
}

/// Nobody could tell any more what the program does: it ends as at the end of the input.
void Session::write(const QJsonObject& line) {
  const QByteArray bytes = lineOf(line);
  if (isLost_ || output_.write(bytes) == bytes.size())
    return;
  isLost_ = true;
  terminal_.close();
}

QJsonObject Session::state() {
  const Console& console = program_.console;
  const WatchCycle& cycle = terminal_.cycle();
  QJsonArray log;
  for (const LogRow& row : console.log().rows())
    log.append(row.message);
  Headless::Seen seen = headless_.takeSeen();
  QJsonObject state{{u"event"_s, event_++},
                    {u"screen"_s, console.screen().text()},
                    {u"staging"_s, console.staging},
                    {u"input"_s, console.inputlbl()},
                    {u"pad"_s, console.padlbl()},
                    {u"caret"_s, console.screen().caret()},
                    {u"panel1"_s, console.status().panel1()},
                    {u"panel2"_s, console.status().panel2()},
                    {u"log"_s, log},
                    {u"dialogs"_s, seen.dialogs},
                    {u"forms"_s, seen.forms},
                    {u"sounds"_s, seen.sounds},
                    {u"prints"_s, seen.prints},
                    {u"pages"_s, seen.pages},
                    {u"requests"_s, std::exchange(requests_, {})},
                    {u"tip"_s, tip_ ? QJsonValue(*tip_) : QJsonValue()},
                    {u"currentInput"_s, program_.currentInput},
                    {u"timers"_s, QJsonObject{{u"Timer"_s, cycle.watchEnabled()},
                                              {u"Timer2"_s, cycle.overlayTimerEnabled()},
                                              {u"Timer4"_s, cycle.retryEnabled()},
                                              {u"timer1"_s, cycle.trayTimerEnabled()}}},
                    {u"ended"_s, terminal_.ended()},
                    {u"update"_s, terminal_.updaterRequested()}};
  state.insert(u"sources"_s, sourcesJson(program_));
  state.insert(u"from"_s,
               servedJson(program_, [](const ServedBy& by, size_t kind) { return by.names[kind]; }));
  state.insert(u"asked"_s, servedJson(program_, [](const ServedBy& by, size_t kind) {
                 return by.asked[kind].toString(Qt::ISODate);
               }));
  if (withRuns_)
    state.insert(u"runs"_s, runsJson(console.screen().runs()));
  if (rows_)
    state.insert(u"rows"_s, *std::exchange(rows_, std::nullopt));
  tip_.reset();
  return state;
}

} // namespace soran
