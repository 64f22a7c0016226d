// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/utf8_locale.h"
#include "base/version.h"
#include "delivered.h"
#include "desktop/desktop.h"
#include "desktop/widgets/look.h"

#include <QApplication>
#include <cstdio>

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

constexpr int badArguments = 2;

void print(std::FILE* stream, const QString& text) {
  std::fputs(text.toUtf8().constData(), stream);
}

/// The exit status where the arguments ask for no window.
std::optional<int> answerWithoutWindow(const LaunchOptions& options) {
  QString why = options.error;
  if (why.isEmpty() && !options.rest.isEmpty())
    why = u"unknown argument "_s + options.rest.first();
  if (why.isEmpty() && options.runs)
    why = u"--runs goes with a session of soran-cli"_s;
  if (why.isEmpty() && options.json)
    why = u"--json goes with soran-cli check-sources and watch"_s;
  if (why.isEmpty() && !QString(options.list + options.group + options.exec + options.webhook).isEmpty())
    why = u"--list, --group, --exec and --webhook go with soran-cli watch"_s;
  if (!why.isEmpty()) {
    print(stderr, u"soran: "_s + why + u'\n');
    return badArguments;
  }
  if (options.help) {
    print(stdout, u"soran: SORAN, the aviation weather terminal\n\n  soran [OPTIONS]\n\n"_s + optionsHelp() +
                      u"  --board           shows the board of the watch from the start\n"_s);
    return 0;
  }
  if (options.version) {
    print(stdout, u"soran "_s + programVersion + u'\n');
    return 0;
  }
  return std::nullopt;
}

LaunchOptions optionsOf(int argc, char** argv) {
  QStringList arguments;
  for (int i = 1; i < argc; ++i)
    arguments.append(QString::fromLocal8Bit(argv[i]));
  return readOptions(arguments);
}

} // namespace

int main(int argc, char** argv) {
  // A display is not needed to tell what is wrong.
  const LaunchOptions options = optionsOf(argc, argv);
  if (const std::optional<int> status = answerWithoutWindow(options))
    return *status;
  useUtf8();
  QApplication app(argc, argv);
  QApplication::setApplicationName(u"soran"_s);
  QApplication::setQuitOnLastWindowClosed(false);
  dressApplication(app);
  LoopTimers timers;
  Launch launch(options, timers, delivered::file);
  return Desktop(launch).run(options.board);
}
