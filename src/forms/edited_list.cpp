// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/edited_list.h"

#include "base/skip.h"

namespace soran {

using namespace Qt::StringLiterals;

namespace {
Q_LOGGING_CATEGORY(lcEditors, "soran.terminal.editors")
} // namespace

bool confirmed(Program& program, const QString& text) {
  return program.services.dialogs.question(u" 確認"_s, text) && !program.services.shutdown.requested();
}

bool confirmedDeletion(Program& program, const QString& what) {
  return confirmed(program, what + u" を削除しますか？　　");
}

void tell(Program& program, const QString& text) {
  program.services.dialogs.message(u" 確認"_s, text);
}

void writeBack(Program& program, const std::function<void()>& store) {
  if (!passOver(lcEditors(), "writing a list back", store) && !program.services.shutdown.requested())
    tell(program, u"保存できませんでした　　"_s);
}

} // namespace soran
