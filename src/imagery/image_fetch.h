// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/image_table.h"
#include "platform/inet.h"

#include <optional>
#include <vector>

namespace soran {

/// What the bytes of an answer are.
enum class BodyKind { Empty, Png, Jpeg, Gif, Svg, Pdf, Html, Json, Other };

/// By the first bytes; a text is Other.
BodyKind bodyKind(const QByteArray& body);

/// What a picture of that kind is made of.
bool fits(BodyKind body, ImageRow::Kind kind);

/// What a row brought.
struct FetchedImage {
  std::vector<QByteArray> layers = {}; ///< in drawing order; empty where it failed
  QUrl address = {};                   ///< of the layer that tells the time, or of what failed
  QDateTime time = {};                 ///< the picture's own, in UTC; invalid where nobody told
  Reply reply = {};                    ///< the last answer, without its body
  BodyKind kind = BodyKind::Empty;     ///< of the last answer
  bool isList = false;                 ///< the last answer is the list

  bool ok() const { return !layers.empty(); }
};

/// Asks a list for the name, then for the picture of each time until it is there. What is no picture, of a
/// day before, or missing (an error status, a page in its place) counts as not there; where nobody answers,
/// the walk ends. A picture that only tells its hour and is of an earlier day than it says is taken where
/// there is no better one. Pages are asked for like anything else.
FetchedImage fetchImage(Inet& inet, const ImageRow& row, const QDateTime& now);

/// How old a picture of that time is at `now`, in minutes, not below 0; nothing where its time is not known.
std::optional<qint64> imageAge(const QDateTime& time, const QDateTime& now);

/// Older than twice its period; never where one of both is not known.
bool isOld(const QDateTime& time, int period, const QDateTime& now);

/// The line below a picture: its time in UTC and in Japan, its age, that it is old, and who serves it.
QString imageNote(const ImageRow& row, const QDateTime& time, const QDateTime& now);

/// The name that a list tells: the text in a JSON at `path` (near.now[0], near.now[max]), or the first text
/// in a page that looks like `pattern`, of at most 512 characters and within the first 524,288. Empty where
/// there is none.
QString nameInJson(const QByteArray& json, const QString& path);
QString nameInPage(const QString& whole, const QString& pattern);

} // namespace soran
