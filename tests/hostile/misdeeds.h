// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <random>
#include <span>

namespace soran::hostile {

class Dice {
 public:
  explicit Dice(quint64 seed) : engine_(seed) {}

  qsizetype below(qsizetype bound) { return qsizetype(engine_() % quint64(bound)); }
  qsizetype from(qsizetype least, qsizetype most) { return least + below(most - least + 1); }
  template <typename List>
  auto oneOf(const List& list) {
    return *(std::begin(list) + below(qsizetype(std::size(list))));
  }

 private:
  std::mt19937_64 engine_; // gives the same numbers everywhere
};

/// What an endpoint has at hand for its answer to one request.
struct Material {
  QByteArray body = {};      ///< the true one
  QByteArray other = {};     ///< the report of a station that nobody asks for
  QByteArray otherPath = {}; ///< where that is served
  QByteArray older = {};     ///< a former report of the station
  QByteArray future = {};    ///< the true one, dated hours ahead
  QByteArray path = {};      ///< what was asked for
  int port = 0;              ///< of 127.0.0.1
};

/// What must come of an answer.
enum class Shows { Refusal, Truth, Either, Itself };

/// An answer as it goes over the line.
struct Script {
  enum class End { Keep, Close, Reset };

  QList<QByteArray> pieces; ///< with a millisecond between them
  End end = End::Keep;
  Shows shows = Shows::Refusal;
  QByteArray body = {};     ///< what is shown where that is this answer itself
  QByteArray surplus = {};  ///< comes behind the answer ...
  int surplusAfter = 0;     ///< ... so many milliseconds later
  bool askedAgain = false;  ///< played once, it costs nothing
  bool leavesAlone = false; ///< the server asks for no request for a second, which is obeyed
};

struct Misdeed {
  enum class Of {
    Transfer, ///< may befall every file
    Content,  ///< befalls reports
    Page,     ///< befalls reports, and a watch may tell that something changed
    Silence,  ///< costs the time-out
  };
  const char* name;
  Of of;
  Script (*play)(Dice& dice, const Material& material);
};

std::span<const Misdeed> misdeeds();

/// An answer that nothing is wrong with.
Script honest(const QByteArray& body);

} // namespace soran::hostile
