// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/line_editor.h"

#include "cli/readline_library.h"
#include "platform/shutdown.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <cerrno>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <unistd.h>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

constexpr int longestHistory = 500;
constexpr int escape = 0x1B;

/// The library and Qt's message handler call plain functions; this is the editor that they mean.
LineEditor* active = nullptr;

/// All that is typed and shown is UTF-8, whatever the locale says. The library takes it from the environment.
void useUtf8() {
  constexpr const char* utf8 = "C.UTF-8";
  std::setlocale(LC_CTYPE, utf8);
  qputenv("LC_ALL", utf8);
}

} // namespace

/// The functions that the library calls.
struct LineEditor::Library {
  static void lineEnded(char* line) {
    active->lineEnded(line);
    std::free(line); // NOLINT(cppcoreguidelines-no-malloc): the library allocates its lines so
  }

  /// Reads a key itself, so that the end of the terminal is told from a line's end.
  static int read(FILE*) {
    unsigned char key = 0;
    ssize_t count = 0;
    do {
      count = ::read(STDIN_FILENO, &key, 1);
    } while (count < 0 && errno == EINTR);
    if (count == 1)
      return key;
    active->closed_ = true;
    return EOF;
  }

  static int end(int, int) {
    active->ended_ = true;
    *readlineLibrary().rl_done = 1;
    return 0;
  }

  static int nothing(int, int) { return 0; }

  /// Steps that were passed over are nothing to interrupt the user for: who wants to read them sends standard
  /// error elsewhere.
  static void message(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtCriticalMsg || type == QtFatalMsg)
      emit active->diagnostic(text);
  }
};

LineEditor::LineEditor() : notifier_(STDIN_FILENO, QSocketNotifier::Read) {
  active = this;
  notifier_.setEnabled(false);
  connect(this, &LineEditor::promptWanted, this, &LineEditor::show, Qt::QueuedConnection);
  connect(this, &LineEditor::lineTaken, this, &LineEditor::deliver, Qt::QueuedConnection);
  connect(&notifier_, &QSocketNotifier::activated, this, [this] { readKey(); });
  *readlineLibrary().rl_readline_name = "soran";
  *readlineLibrary().rl_instream = stdin;
  *readlineLibrary().rl_outstream = stdout;
  *readlineLibrary().rl_getc_function = Library::read;
  *readlineLibrary().rl_catch_signals = 0;
  *readlineLibrary().rl_catch_sigwinch = 0;
  *readlineLibrary().rl_change_environment = 0;
  // Between two lines the terminal stays as it is, so that keys typed there are neither shown nor lost.
  *readlineLibrary().rl_deprep_term_function = nullptr;
  useUtf8();
  readlineLibrary().rl_initialize();
  // Each line of a pasted text runs like a typed one.
  readlineLibrary().rl_variable_bind("enable-bracketed-paste", "off");
  readlineLibrary().rl_variable_bind("bell-style", "none");
  readlineLibrary().rl_bind_key('\t', Library::nothing);
  // In the other editing mode a single ESC has a meaning of its own. Some systems bind longer sequences that
  // begin with these two, for which the library would wait: they give way.
  constexpr int emacsMode = 1;
  if (*readlineLibrary().rl_editing_mode == emacsMode) {
    KEYMAP_ENTRY& twice = (*readlineLibrary().emacs_meta_keymap)[escape];
    if (twice.type == ISKMAP)
      readlineLibrary().rl_free_keymap(reinterpret_cast<Keymap>(twice.function));
    twice = {ISFUNC, Library::end};
  }
  readlineLibrary().using_history();
  readlineLibrary().stifle_history(longestHistory);
  readlineLibrary().rl_prep_terminal(1);
  if (isatty(STDERR_FILENO) != 0)
    qInstallMessageHandler(Library::message);
}

LineEditor::~LineEditor() {
  release();
  active = nullptr;
}

void LineEditor::release() {
  stop();
  qInstallMessageHandler(nullptr);
  readlineLibrary().rl_deprep_terminal();
  std::fflush(stdout);
}

void LineEditor::stop() {
  if (shown_) {
    readlineLibrary().rl_callback_handler_remove();
    std::fputc('\n', stdout);
    std::fflush(stdout);
  }
  shown_ = false;
  stopped_ = true;
  notifier_.setEnabled(false);
}

void LineEditor::setPrompt(const QByteArray& prompt, Receiver receiver) {
  const QString kept = typed();
  const bool wasShown = shown_;
  hide();
  prompt_ = prompt;
  receiver_ = std::move(receiver);
  initial_ = kept;
  if (wasShown)
    show();
}

void LineEditor::show() {
  if (shown_ || stopped_ || closed_)
    return;
  emit aboutToShow();
  shown_ = true;
  readlineLibrary().rl_callback_handler_install(prompt_.constData(), Library::lineEnded);
  if (!initial_.isEmpty()) {
    readlineLibrary().rl_insert_text(initial_.toUtf8().constData());
    readlineLibrary().rl_redisplay();
    initial_.clear();
  }
  std::fflush(stdout);
  notifier_.setEnabled(true);
}

void LineEditor::hide() {
  if (!shown_)
    return;
  readlineLibrary().rl_clear_visible_line();
  readlineLibrary().rl_callback_handler_remove();
  std::fflush(stdout);
  shown_ = false;
  notifier_.setEnabled(false);
}

QString LineEditor::typed() const {
  return shown_ ? QString::fromUtf8(*readlineLibrary().rl_line_buffer, *readlineLibrary().rl_end) : initial_;
}

void LineEditor::setTyped(const QString& text) {
  if (!shown_) {
    initial_ = text;
    return;
  }
  readlineLibrary().rl_replace_line(text.toUtf8().constData(), 1);
  *readlineLibrary().rl_point = *readlineLibrary().rl_end;
  readlineLibrary().rl_redisplay();
}

void LineEditor::print(const QByteArray& lines) const {
  if (lines.isEmpty() || closed_)
    return;
  if (shown_)
    readlineLibrary().rl_clear_visible_line();
  std::fwrite(lines.constData(), 1, size_t(lines.size()), stdout);
  if (shown_)
    readlineLibrary().rl_forced_update_display();
  std::fflush(stdout);
}

std::optional<QString> LineEditor::ask(const QByteArray& prompt, const QString& initial,
                                       const Shutdown& shutdown) {
  const QByteArray keptPrompt = prompt_;
  const Receiver keptReceiver = receiver_;
  const QString kept = typed();
  struct Typed {
    bool given = false;
    std::optional<QString> line;
  };
  // A line on its way outlives a wait that the end of the program cuts short.
  const auto answer = std::make_shared<Typed>();
  hide();
  setPrompt(prompt, [answer](const std::optional<QString>& line) { *answer = {true, line}; });
  initial_ = initial;
  show();
  while (!answer->given && !shutdown.requested())
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  hide();
  prompt_ = keptPrompt;
  receiver_ = keptReceiver;
  initial_ = kept;
  shutdown.check();
  emit promptWanted();
  return answer->line;
}

void LineEditor::remember(const QString& line) {
  const HIST_ENTRY* last = *readlineLibrary().history_length > 0
                               ? readlineLibrary().history_get(*readlineLibrary().history_base +
                                                               *readlineLibrary().history_length - 1)
                               : nullptr;
  const QByteArray entry = line.toUtf8();
  if (!line.trimmed().isEmpty() && (!last || entry != last->line))
    readlineLibrary().add_history(entry.constData());
}

int LineEditor::columns() {
  int rows = 0;
  int columns = 0;
  readlineLibrary().rl_get_screen_size(&rows, &columns);
  return columns;
}

void LineEditor::resized() const {
  if (shown_)
    readlineLibrary().rl_resize_terminal();
  else
    readlineLibrary().rl_reset_screen_size();
}

void LineEditor::resumed() const {
  readlineLibrary().rl_deprep_terminal();
  readlineLibrary().rl_prep_terminal(1);
  if (shown_)
    readlineLibrary().rl_forced_update_display();
}

void LineEditor::readKey() {
  readlineLibrary().rl_callback_read_char();
  std::fflush(stdout);
  if (closed_ && shown_)
    lineEnded(nullptr);
  emit keyPressed();
}

/// The library is still in the middle of its work: the line is handed over when it has come back.
void LineEditor::lineEnded(const char* line) {
  std::optional<QString> typedLine;
  if (line && !ended_ && !closed_)
    typedLine = QString::fromUtf8(line);
  else if (!closed_)
    std::fputc('\n', stdout);
  ended_ = false;
  shown_ = false;
  readlineLibrary().rl_callback_handler_remove();
  notifier_.setEnabled(false);
  taken_.emplace_back(receiver_, typedLine);
  emit lineTaken();
}

void LineEditor::deliver() {
  const auto [receiver, line] = taken_.front();
  taken_.pop_front();
  // The prompt comes back in the first wait of what the line starts, at its end at the latest.
  emit promptWanted();
  receiver(line);
}

} // namespace soran
