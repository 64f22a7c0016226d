// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The built program on a pseudo terminal.

#include "base/files.h"
#include "delivered.h"
#include "support/child_process.h"
#include "support/own_folder.h"

#include <QByteArray>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QProcess>
#include <csignal>
#include <gtest/gtest.h>
#include <optional>
#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using soran::ChildProcess;
using soran::OwnFolder;
using soran::writeWhole;
namespace delivered = soran::delivered;

namespace {

constexpr int longestWait = 15'000; // milliseconds
const QString program = QStringView(SORAN_CLI).toString();
const QByteArray prompt = "DEMONSTRATION DATA > ";

class Terminal {
 public:
  /// With files in its directory the program takes its endpoints from there, and shows no demonstration.
  explicit Terminal(const QByteArray& colorTerm = "truecolor", const QMap<QString, QByteArray>& files = {}) {
    for (auto i = files.cbegin(); i != files.cend(); ++i) {
      QDir().mkpath(QFileInfo(home_.filePath(i.key())).path());
      EXPECT_TRUE(writeWhole(home_.filePath(i.key()), i.value()));
    }
    const winsize size = {.ws_row = 40, .ws_col = 100, .ws_xpixel = 0, .ws_ypixel = 0};
    const QByteArray path = program.toUtf8();
    const QByteArray directory = home_.path().toUtf8();
    const QByteArray search = (home_.filePath(u"bin"_s) + u':').toUtf8() + qgetenv("PATH");
    const auto run = [&] {
      setenv("TERM", "xterm-256color", 1);
      setenv("COLORTERM", colorTerm.constData(), 1);
      setenv("LC_ALL", "C.UTF-8", 1);
      setenv("PATH", search.constData(), 1);
      unsetenv("NO_COLOR");
      execl(path.constData(), path.constData(), "--home", directory.constData(),
            files.isEmpty() ? "--demo" : nullptr, nullptr);
      _exit(127);
    };
    child_.emplace(run, master_, size);
  }
  ~Terminal() { hangUp(); }
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;

  QString home() const { return home_.path(); }

  void type(const QByteArray& keys) { ASSERT_EQ(write(master_, keys.constData(), keys.size()), keys.size()); }

  /// Reads until `text` comes and gives what came before it, `text` included; all of it where it never comes.
  QByteArray readTo(const QByteArray& text) {
    QElapsedTimer clock;
    clock.start();
    while (!pending_.contains(text) && clock.elapsed() < longestWait && readSome(100)) {
    }
    const qsizetype found = pending_.indexOf(text);
    EXPECT_GE(found, 0) << "no " << text.constData() << " in " << pending_.constData();
    const qsizetype end = found < 0 ? pending_.size() : found + text.size();
    const QByteArray read = pending_.left(end);
    pending_.remove(0, end);
    return read;
  }

  /// Puts a shell script ahead of the programs of its name, in the place of a former one.
  void script(const QString& name, const QByteArray& lines) const {
    QDir(home_.path()).mkpath(u"bin"_s);
    const QString path = home_.filePath(u"bin/"_s + name);
    ASSERT_TRUE(writeWhole(path, "#!/bin/sh\n" + lines));
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  }
  /// The bytes of a file in the program's directory.
  QByteArray file(const QString& name) const {
    QFile opened(home_.filePath(name));
    return opened.open(QIODevice::ReadOnly) ? opened.readAll() : QByteArray();
  }

  void signal(int number) const { EXPECT_TRUE(child_->signal(number)); }

  /// Closes the line.
  void hangUp() {
    if (master_ >= 0)
      close(master_);
    master_ = -1;
  }

  /// The exit status, -1 where the program did not end by itself.
  int exitStatus() {
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < longestWait) {
      if (const std::optional<int> status = child_->ended())
        return WIFEXITED(*status) ? WEXITSTATUS(*status) : -1;
      if (master_ < 0 || !readSome(50))
        usleep(20'000);
    }
    return -1;
  }

 private:
  /// False where the line is closed.
  bool readSome(int milliseconds) {
    pollfd line = {.fd = master_, .events = POLLIN, .revents = 0};
    if (poll(&line, 1, milliseconds) == 0)
      return true;
    char buffer[4096];
    const ssize_t count = read(master_, buffer, sizeof buffer);
    if (count <= 0)
      return false;
    pending_ += QByteArray(buffer, count);
    return true;
  }

  OwnFolder home_;
  int master_ = -1;
  std::optional<ChildProcess> child_;
  QByteArray pending_;
};

} // namespace

TEST(InteractiveTerminal, ShowsAStationInColoursBelowTheTypedLine) {
  Terminal terminal;
  EXPECT_TRUE(terminal.readTo(prompt).contains("DEMONSTRATION DATA"));
  // The first run of the automatic list ends with the prompt.
  terminal.readTo("READY / PRESS ESC TO EXIT\r\n");
  terminal.readTo(prompt);
  terminal.type("RJTT\r");
  terminal.readTo("*** RJTT - WEATHER OBSERVATION AND FORECASTS ***\r\n");
  const QByteArray report = terminal.readTo(prompt);
  EXPECT_TRUE(report.contains("RJTT  METAR "));
  EXPECT_TRUE(report.contains("\x1B[38;2;"));
  EXPECT_TRUE(report.contains("READY / PRESS ESC TO EXIT\r\n"));
  EXPECT_TRUE(report.endsWith(QByteArray("EXIT\r\n" + prompt))) << report.constData();
  terminal.type("EXIT\r");
  EXPECT_EQ(terminal.exitStatus(), 0);
}

TEST(InteractiveTerminal, KeepsTheTypedLineWholeWhileTheScreenGrows) {
  Terminal terminal;
  terminal.readTo(prompt);
  // The automatic list comes while the user types.
  terminal.type("RJ");
  terminal.readTo(prompt + "RJ");
  EXPECT_TRUE(terminal.readTo("READY / PRESS ESC TO EXIT\r\n").contains("LOADING"));
  terminal.readTo(prompt + "RJ");
  terminal.type("AA\r");
  terminal.readTo("*** RJAA - WEATHER");
  terminal.signal(SIGTERM);
  EXPECT_EQ(terminal.exitStatus(), 0);
}

TEST(InteractiveTerminal, ShowsTheRestThatAClearingLeavesInTheTypedLine) {
  Terminal terminal("");
  terminal.readTo("READY / PRESS ESC TO EXIT\r\n");
  terminal.readTo(prompt);
  terminal.type("CLS\r");
  terminal.readTo("\x1B[H\x1B[2J");
  terminal.readTo(prompt + "CLS");
  terminal.type("\x7F\x7F\x7FXX\r");
  EXPECT_FALSE(terminal.readTo("SYNTAX ERROR").contains("CLSXX"));
  terminal.readTo(prompt);
  terminal.type("CLS\r");
  terminal.readTo(prompt + "CLS");
  // Nothing is left of it.
  terminal.type("\x7F\x7F\x7F\r");
  terminal.readTo(prompt);
  terminal.type("\x1B\x1B");
  EXPECT_EQ(terminal.exitStatus(), 0);
}

TEST(InteractiveTerminal, AsksInTheMiddleOfACommand) {
  Terminal terminal("");
  terminal.readTo("READY / PRESS ESC TO EXIT\r\n");
  terminal.readTo(prompt);
  terminal.type("UPDATE\r");
  terminal.readTo("[y/N] ");
  // An empty line is a no.
  terminal.type("\r");
  terminal.readTo(prompt + "UPDATE");
  terminal.type("\x15UPDATE\r");
  terminal.readTo("[y/N] ");
  terminal.signal(SIGTERM);
  EXPECT_EQ(terminal.exitStatus(), 0);
}

TEST(InteractiveTerminal, HandsOverToTheUpdateModuleOnItsTerminal) {
  const QByteArray module =
      "#!/bin/sh\n[ -t 0 ] && [ ! -e \"${0%/*}/data\" ] && echo MODULE \"$SORAN_PROGRAM\"\n"
      "stty -a | grep -q ' icanon.* echo ' && echo LINES\nexit 5\n";
  Terminal terminal("", {{u"endpoints.ini"_s, "[endpoints]\nupdate=./served\nmetar=./none/\ntaf=./none/\n"},
                         {u"served/data/version.dat"_s, "4.31\n1.00\n1.00\n"},
                         {u"served/data/soran.mdb"_s, delivered::file(u"update/data/soran.mdb"_s)},
                         {u"served/data/update.exe"_s, module},
                         {u"update.exe"_s, "#!/bin/sh\necho LEFT BY ANOTHER\n"}});
  terminal.readTo("READY / PRESS ESC TO EXIT\r\n");
  terminal.readTo("> ");
  terminal.type("UPDATE\r");
  terminal.readTo("[y/N] ");
  terminal.type("y\r");
  terminal.readTo("MODULE " + program.toUtf8() + "\r\n");
  // It finds the terminal as the program found it.
  terminal.readTo("LINES\r\n");
  EXPECT_EQ(terminal.exitStatus(), 5);
}

TEST(InteractiveTerminal, PrintsAndShowsWhatNeedsTheWindow) {
  Terminal terminal("");
  terminal.script(u"lpstat"_s, "printf 'OFFICE\\nTOWER\\n'");
  terminal.script(u"lp"_s, R"({ echo "$@"; cat; } > "$(dirname "$0")/printed")");
  const auto enter = [&terminal](const QByteArray& line, const QByteArray& end = prompt) {
    terminal.type("\x15" + line + "\r");
    return terminal.readTo(end);
  };
  terminal.readTo("READY / PRESS ESC TO EXIT\r\n");
  terminal.readTo(prompt);
  EXPECT_TRUE(enter("/P", "PRINTER [*]: ").contains("  2   TOWER\r\n"));
  enter("2");
  const QByteArray printed = terminal.file(u"bin/printed"_s);
  EXPECT_TRUE(printed.startsWith("-d TOWER -o media=A4 ")) << printed.constData();
  EXPECT_TRUE(printed.contains("RJTT  METAR ") && !printed.contains('\r'));
  terminal.script(u"lpstat"_s, "exit 1");
  EXPECT_TRUE(enter("/P").contains("NO PRINTER INSTALLED"));
  EXPECT_TRUE(enter("LOG").contains(" RECEIVED\r\n"));
  EXPECT_TRUE(enter("AP").contains("THE FORM airport NEEDS THE WINDOW"));
  EXPECT_TRUE(enter("HELP").contains("/help/help.html"));
  EXPECT_TRUE(enter("CB").contains("PICTURE OF CB: SHOWN BY THE WINDOW"));
  EXPECT_TRUE(enter("DE").contains("NEEDS THE WINDOW"));
  enter("EXIT", "EXIT");
  EXPECT_EQ(terminal.exitStatus(), 0);
}

TEST(InteractiveTerminal, EndsCleanlyHoweverItIsEnded) {
  struct Case {
    const char* name;
    void (*end)(Terminal&);
  };
  const Case cases[] = {
      {"interrupt key", [](Terminal& t) { t.type("\x03"); }},
      {"end of input", [](Terminal& t) { t.type("\x04"); }},
      {"a typed line left behind", [](Terminal& t) { t.type("RJ\x03"); }},
      {"termination", [](Terminal& t) { t.signal(SIGTERM); }},
      {"closed line", [](Terminal& t) { t.hangUp(); }},
  };
  for (const Case& c : cases) {
    Terminal terminal;
    terminal.readTo(prompt);
    c.end(terminal);
    EXPECT_EQ(terminal.exitStatus(), 0) << c.name;
  }
}

TEST(InteractiveTerminal, NeedsATerminal) {
  QProcess process;
  process.start(program, {u"--demo"_s});
  process.closeWriteChannel();
  ASSERT_TRUE(process.waitForFinished());
  EXPECT_EQ(process.exitCode(), 2);
  EXPECT_TRUE(process.readAllStandardError().contains("no terminal"));
}
