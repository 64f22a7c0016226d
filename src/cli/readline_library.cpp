// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/readline_library.h"

#include <QLibrary>

namespace soran {

namespace {

template <typename Symbol>
bool find(QLibrary& library, const char* name, Symbol& symbol) {
  symbol = reinterpret_cast<Symbol>(library.resolve(name));
  return symbol != nullptr;
}

} // namespace

ReadlineLibrary::ReadlineLibrary() {
  QLibrary library(QStringLiteral("readline"), 8);
  isLoaded_ =
      find(library, "rl_initialize", rl_initialize) && find(library, "rl_variable_bind", rl_variable_bind) &&
      find(library, "rl_bind_key", rl_bind_key) && find(library, "rl_free_keymap", rl_free_keymap) &&
      find(library, "rl_prep_terminal", rl_prep_terminal) &&
      find(library, "rl_deprep_terminal", rl_deprep_terminal) &&
      find(library, "rl_callback_handler_remove", rl_callback_handler_remove) &&
      find(library, "rl_callback_handler_install", rl_callback_handler_install) &&
      find(library, "rl_insert_text", rl_insert_text) && find(library, "rl_redisplay", rl_redisplay) &&
      find(library, "rl_clear_visible_line", rl_clear_visible_line) &&
      find(library, "rl_replace_line", rl_replace_line) &&
      find(library, "rl_forced_update_display", rl_forced_update_display) &&
      find(library, "history_get", history_get) && find(library, "add_history", add_history) &&
      find(library, "rl_get_screen_size", rl_get_screen_size) &&
      find(library, "rl_resize_terminal", rl_resize_terminal) &&
      find(library, "rl_reset_screen_size", rl_reset_screen_size) &&
      find(library, "rl_callback_read_char", rl_callback_read_char) &&
      find(library, "using_history", using_history) && find(library, "stifle_history", stifle_history) &&
      find(library, "rl_readline_name", rl_readline_name) && find(library, "rl_instream", rl_instream) &&
      find(library, "rl_outstream", rl_outstream) && find(library, "rl_getc_function", rl_getc_function) &&
      find(library, "rl_catch_signals", rl_catch_signals) &&
      find(library, "rl_catch_sigwinch", rl_catch_sigwinch) &&
      find(library, "rl_change_environment", rl_change_environment) &&
      find(library, "rl_deprep_term_function", rl_deprep_term_function) &&
      find(library, "rl_editing_mode", rl_editing_mode) && find(library, "rl_line_buffer", rl_line_buffer) &&
      find(library, "rl_end", rl_end) && find(library, "rl_point", rl_point) &&
      find(library, "rl_done", rl_done) && find(library, "history_length", history_length) &&
      find(library, "history_base", history_base) && find(library, "emacs_meta_keymap", emacs_meta_keymap);
}

const ReadlineLibrary& readlineLibrary() {
  static const ReadlineLibrary library;
  return library;
}

} // namespace soran
