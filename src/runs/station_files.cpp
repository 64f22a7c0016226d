// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runs/station_files.h"

#include "base/text.h"
#include "platform/courtesy.h"
#include "runs/program.h"

#include <algorithm>
#include <span>

namespace soran {

namespace {

using Standing = Arrival::Standing;

/// An answer that says that there is nothing (RFC 9110, 15.3.5 and 15.5.5), as opposed to none. A page of
/// that status tells that the address itself leads nowhere.
bool saysNothing(const Reply& reply) {
  return reply.status == 204 || (reply.status == 404 && !reply.body.startsWith('<'));
}

/// A station of which a list tells nothing is one that the source does not have.
StationText nothing() {
  return {.kind = StationText::Kind::Page};
}

StationText textOf(const StationCode& code, const QHash<QString, RawReport>& reports) {
  const auto found = reports.constFind(asciiUpper(code.text()));
  if (found == reports.cend())
    return nothing();
  StationText text = readStationText(code, found->file);
  text.isSpecial = found->isSpecial;
  return text;
}

/// The server has no time for this request, or for anybody.
bool isRefusal(const Reply& reply) {
  constexpr int tooMany = 429;
  constexpr int unavailable = 503;
  return reply.status == tooMany || reply.status == unavailable;
}

/// What tells more where no source brings the latest report: an older one, then that one could not be asked.
int worthOf(Standing standing) {
  return standing == Standing::Older ? 2 : standing == Standing::Failed ? 1 : 0;
}

} // namespace

StationFiles::StationFiles(Program& program, std::vector<StationCode> codes, Use use)
    : program_(program), codes_(std::move(codes)), use_(use),
      sources_(program.services.endpoints.reportSources()), tallies_(sources_.size()),
      onTheWay_(codes_.size()) {
  putInOrder();
  if (!codes_.empty())
    beginLists();
}

void StationFiles::putInOrder() {
  const QDateTime now = program_.services.clock.now();
  for (size_t source = 0; source < sources_.size(); ++source) {
    if (!program_.sourceHealth.isAway(source, now))
      order_.push_back(source);
  }
  // With all of them away there is nothing to be won by leaving one out.
  for (size_t source = 0; order_.empty() && source < sources_.size(); ++source)
    order_.push_back(source);
  // More files than may be asked for in a minute are better had as a list.
  const auto takesLists = [this](size_t source) { return sources_[source].takesLists(ReportKind::Metar); };
  const bool isLong = codes_.size() * 2 > Courtesy::mostAMinute &&
                      !isLoopback(fileAddress(order_.front(), 0, ReportKind::Metar));
  if (isLong)
    std::stable_partition(order_.begin(), order_.end(), takesLists);
}

void StationFiles::beginLists() {
  beginList({order_.front(), ReportKind::Metar, 0});
  if (use_.forecasts)
    beginList({order_.front(), ReportKind::Taf, 0});
}

StationFiles::~StationFiles() {
  const QDateTime now = program_.services.clock.now();
  for (size_t source = 0; source < sources_.size(); ++source)
    program_.sourceHealth.tell(source, tallies_[source].asked, tallies_[source].failed, now);
}

Arrival StationFiles::take(size_t place, ReportKind kind) {
  Arrival best;
  bool any = false;
  const std::vector<size_t> order = order_;
  for (const size_t source : order) {
    if (tallies_[source].dead)
      continue;
    Arrival arrival =
        takeIn(program_, codes_[place], kind, fetch(source, place, kind), sources_[source].name);
    if (arrival.isReport())
      arrival.source = sources_[source].name;
    if (arrival.standing == Standing::Latest || arrival.standing == Standing::Future)
      return arrival;
    if (!any || worthOf(arrival.standing) > worthOf(best.standing))
      best = std::move(arrival);
    any = true;
  }
  return best;
}

std::optional<StationText> StationFiles::fetch(size_t source, size_t place, ReportKind kind) {
  if (sources_[source].takesLists(kind))
    return fetchFromList(stretchOf(source, kind, place), codes_[place]);
  const Reply reply = fetchFile(source, place, kind);
  std::optional<StationText> text = judged(source, kind, codes_[place], reply);
  count(source, reply, !text || isRefusal(reply));
  return text;
}

std::optional<StationText> StationFiles::judged(size_t source, ReportKind kind, const StationCode& code,
                                                const Reply& reply) {
  if (sources_[source].form == ReportSource::Form::NoaaStation)
    return reply.ok ? std::optional(readStationText(code, reply.text())) : std::nullopt;
  if (saysNothing(reply))
    return nothing();
  if (!reply.ok || reply.body.startsWith('<'))
    return std::nullopt;
  return textOf(code, readRawLines(reply.text(), kind, program_.services.clock.now().toUTC()));
}

/// A source that nobody reaches is asked no more where there is another one, so that its time-out is waited
/// for once.
void StationFiles::count(size_t source, const Reply& reply, bool failed) {
  Tally& tally = tallies_[source];
  ++tally.asked;
  if (!failed)
    return;
  ++tally.failed;
  const bool unanswered = reply.failure == NetFailure::TimedOut || reply.failure == NetFailure::Unreachable;
  const auto isAlive = [this](size_t one) { return !tallies_[one].dead; };
  tally.dead = unanswered && std::ranges::count_if(order_, isAlive) > 1;
}

/// What the watch was told a moment ago it does not ask again.
const Reply* StationFiles::recent(size_t source, const QUrl& address) const {
  const auto found = program_.recentReplies.constFind(address.toString());
  const bool isFresh = use_.byWatch && found != program_.recentReplies.cend() &&
                       found->asked.secsTo(program_.services.clock.now()) < sources_[source].pause;
  return isFresh ? &found->reply : nullptr;
}

void StationFiles::remember(const QUrl& address, const Reply& reply) {
  constexpr qsizetype most = 2000;
  if (!(reply.ok || saysNothing(reply)))
    return;
  if (program_.recentReplies.size() >= most)
    program_.recentReplies.clear();
  program_.recentReplies[address.toString()] = {program_.services.clock.now(), reply};
}

// Files of a station

QUrl StationFiles::fileAddress(size_t source, size_t place, ReportKind kind) const {
  return codes_.empty() ? QUrl() : sources_[source].address(kind, std::span(&codes_[place], 1));
}

Reply StationFiles::fetchFile(size_t source, size_t place, ReportKind kind) {
  const QUrl address = fileAddress(source, place, kind);
  if (const Reply* known = recent(source, address))
    return *known;
  Reply reply = fetchAnew(source, place, kind);
  if (sources_[source].pause > 0)
    remember(address, reply);
  return reply;
}

Reply StationFiles::fetchAnew(size_t source, size_t place, ReportKind kind) {
  if (use_.ahead > 0 && source == order_.front())
    beginUpTo(place + size_t(use_.ahead));
  auto& transfer = kind == ReportKind::Metar ? onTheWay_[place].metar : onTheWay_[place].taf;
  // Where another source brought the METAR, nothing began the TAF.
  if (!transfer || source != order_.front())
    return program_.services.inet.open(fileAddress(source, place, kind));
  Reply reply = transfer->take();
  transfer.reset();
  return reply;
}

void StationFiles::beginUpTo(size_t place) {
  Inet& inet = program_.services.inet;
  const size_t source = order_.front();
  while (begun_ < codes_.size() && begun_ <= place) {
    const size_t station = begun_++;
    const QUrl address = fileAddress(source, station, ReportKind::Metar);
    if (recent(source, address))
      continue;
    onTheWay_[station].metar = inet.begin(address, [this, &inet, station, source](const Reply& reply) {
      const auto text = judged(source, ReportKind::Metar, codes_[station], reply);
      if (use_.forecasts && text && text->isReport())
        onTheWay_[station].taf =
            inet.begin(fileAddress(source, station, ReportKind::Taf), [](const Reply&) {});
    });
  }
}

// Lists

StationFiles::Stretch StationFiles::stretchOf(size_t source, ReportKind kind, size_t place) const {
  const size_t length = size_t(sources_[source].list);
  return {source, kind, place / length * length};
}

QUrl StationFiles::addressOf(const Stretch& stretch) const {
  const ReportSource& source = sources_[stretch.source];
  const size_t length = std::min(size_t(source.list), codes_.size() - stretch.first);
  return source.address(stretch.kind, std::span(codes_).subspan(stretch.first, length));
}

void StationFiles::beginList(const Stretch& stretch) {
  if (!sources_[stretch.source].takesLists(stretch.kind))
    return;
  const QUrl address = addressOf(stretch);
  if (const Reply* known = recent(stretch.source, address))
    read_[stretch] = readRawLines(known->text(), stretch.kind, program_.services.clock.now().toUTC());
  else
    lists_[stretch] = program_.services.inet.begin(address, [](const Reply&) {});
}

std::optional<StationText> StationFiles::fetchFromList(const Stretch& stretch, const StationCode& code) {
  if (!read_.contains(stretch) && !lists_.contains(stretch))
    beginList(stretch);
  if (!read_.contains(stretch))
    read_[stretch] = takeList(stretch);
  const std::optional<Reports>& reports = read_[stretch];
  return reports ? std::optional(textOf(code, *reports)) : std::nullopt;
}

std::optional<StationFiles::Reports> StationFiles::takeList(const Stretch& stretch) {
  const std::unique_ptr<Transfer> transfer = std::move(lists_[stretch]);
  lists_.erase(stretch);
  const Reply reply = transfer->take();
  const bool isPage = reply.body.startsWith('<');
  const bool failed = isPage || isRefusal(reply) || !(reply.ok || saysNothing(reply));
  count(stretch.source, reply, failed);
  if (failed)
    return std::nullopt;
  remember(addressOf(stretch), reply);
  return readRawLines(reply.text(), stretch.kind, program_.services.clock.now().toUTC());
}

} // namespace soran
