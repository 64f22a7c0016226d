// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdio>
#include <readline/history.h>
#include <readline/readline.h>

namespace soran {

/// GNU Readline, which edits the typed line. It is loaded when a terminal is there to type at: no other call
/// needs it. Functions and variables have the library's own names; a variable is told by its address.
class ReadlineLibrary {
 public:
  ReadlineLibrary();

  /// False where the system has none that can be used; nothing else may be used then.
  bool isLoaded() const { return isLoaded_; }

  decltype(&::rl_initialize) rl_initialize = nullptr;
  decltype(&::rl_variable_bind) rl_variable_bind = nullptr;
  decltype(&::rl_bind_key) rl_bind_key = nullptr;
  decltype(&::rl_free_keymap) rl_free_keymap = nullptr;
  decltype(&::rl_prep_terminal) rl_prep_terminal = nullptr;
  decltype(&::rl_deprep_terminal) rl_deprep_terminal = nullptr;
  decltype(&::rl_callback_handler_remove) rl_callback_handler_remove = nullptr;
  decltype(&::rl_callback_handler_install) rl_callback_handler_install = nullptr;
  decltype(&::rl_insert_text) rl_insert_text = nullptr;
  decltype(&::rl_redisplay) rl_redisplay = nullptr;
  decltype(&::rl_clear_visible_line) rl_clear_visible_line = nullptr;
  decltype(&::rl_replace_line) rl_replace_line = nullptr;
  decltype(&::rl_forced_update_display) rl_forced_update_display = nullptr;
  decltype(&::history_get) history_get = nullptr;
  decltype(&::add_history) add_history = nullptr;
  decltype(&::rl_get_screen_size) rl_get_screen_size = nullptr;
  decltype(&::rl_resize_terminal) rl_resize_terminal = nullptr;
  decltype(&::rl_reset_screen_size) rl_reset_screen_size = nullptr;
  decltype(&::rl_callback_read_char) rl_callback_read_char = nullptr;
  decltype(&::using_history) using_history = nullptr;
  decltype(&::stifle_history) stifle_history = nullptr;
  decltype(&::rl_readline_name) rl_readline_name = nullptr;
  decltype(&::rl_instream) rl_instream = nullptr;
  decltype(&::rl_outstream) rl_outstream = nullptr;
  decltype(&::rl_getc_function) rl_getc_function = nullptr;
  decltype(&::rl_catch_signals) rl_catch_signals = nullptr;
  decltype(&::rl_catch_sigwinch) rl_catch_sigwinch = nullptr;
  decltype(&::rl_change_environment) rl_change_environment = nullptr;
  decltype(&::rl_deprep_term_function) rl_deprep_term_function = nullptr;
  decltype(&::rl_editing_mode) rl_editing_mode = nullptr;
  decltype(&::rl_line_buffer) rl_line_buffer = nullptr;
  decltype(&::rl_end) rl_end = nullptr;
  decltype(&::rl_point) rl_point = nullptr;
  decltype(&::rl_done) rl_done = nullptr;
  decltype(&::history_length) history_length = nullptr;
  decltype(&::history_base) history_base = nullptr;
  decltype(&::emacs_meta_keymap) emacs_meta_keymap = nullptr;

 private:
  bool isLoaded_ = false;
};

/// Loads it at the first call.
const ReadlineLibrary& readlineLibrary();

} // namespace soran
