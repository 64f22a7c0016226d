// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/utf8_locale.h"
#include "base/version.h"
#include "cli/batch.h"
#include "cli/exchange_call.h"
#include "cli/interactive.h"
#include "cli/readline_library.h"
#include "cli/run.h"
#include "cli/session.h"
#include "cli/source_check.h"
#include "cli/standard_stream.h"
#include "cli/watch.h"
#include "delivered.h"

#include <QCoreApplication>
#include <unistd.h>

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

QByteArray helpText() {
  return QString::fromUtf8(
             "soran-cli: SORAN, the aviation weather terminal, without a window\n\n"
             "  soran-cli [OPTIONS]               the terminal: type commands and station codes; EXIT, "
             "ESC ESC or Ctrl-D ends\n"
             "  soran-cli [OPTIONS] run LINE...   starts, types each LINE and Enter, prints the screen, "
             "stops\n"
             "  soran-cli [OPTIONS] session       an event a line in, the state a line out, both JSON "
             "(--runs "
             "adds colours)\n"
             "  soran-cli [OPTIONS] watch         tells what happens, an event a line (--list CODES, --group "
             "NAME, "
             "--json,\n"
             "                                    --exec COMMAND, --webhook ADDRESS)\n"
             "  soran-cli [OPTIONS] batch         a job a line in, its result a line out, both JSON\n"
             "  soran-cli [OPTIONS] check-sources asks every address once, and tells what it answered "
             "(--json: "
             "an object a line)\n"
             "  soran-cli [OPTIONS] export FILE   writes lists, groups, dictionaries and settings as JSON\n"
             "  soran-cli [OPTIONS] import FILE   takes such a file over, whole or not at all\n\n")
      .append(optionsHelp())
      .toUtf8();
}

int refuse(StandardStream& errors, const QString& why) {
  errors.tell(u"soran-cli: "_s + why + u'\n');
  return badArguments;
}

/// The exit status, with a word on output that is lost.
int told(int status, const StandardStream& output, StandardStream& errors) {
  if (status == outputLost)
    errors.tell(u"soran-cli: cannot write the output: "_s + output.errorString() + u'\n');
  return status;
}

int runCall(LaunchOptions options, StandardStream& output, StandardStream& errors) {
  const QString call = options.rest.takeFirst();
  if (options.board)
    return refuse(errors, u"--board goes with soran"_s);
  if (options.runs && call != u"session")
    return refuse(errors, u"--runs goes with session"_s);
  if (options.json && call != u"check-sources" && call != u"watch")
    return refuse(errors, u"--json goes with check-sources and watch"_s);
  const QString watchOptions = options.list + options.group + options.exec + options.webhook;
  if (!watchOptions.isEmpty() && call != u"watch")
    return refuse(errors, u"--list, --group, --exec and --webhook go with watch"_s);
  if (call == u"watch") {
    if (!options.rest.isEmpty())
      return refuse(errors, u"watch takes no further arguments"_s);
    if (const QString fault = EventHooks::faultOf(options.exec, options.webhook); !fault.isEmpty())
      return refuse(errors, fault);
    return Watch(options, delivered::file, output, errors).run();
  }
  if (call == u"check-sources") {
    if (!options.rest.isEmpty())
      return refuse(errors, u"check-sources takes no further arguments"_s);
    return checkSourcesCall(options, delivered::file, output, errors);
  }
  if (call == u"export" || call == u"import") {
    if (options.rest.size() != 1)
      return refuse(errors, call + u" needs a file");
    return call == u"export" ? exportCall(options, options.rest[0], errors)
                             : importCall(options, options.rest[0], errors);
  }
  if (call == u"run") {
    if (options.rest.isEmpty())
      return refuse(errors, u"run needs a line to type"_s);
    return runLines(options, delivered::file, options.rest, output, errors);
  }
  LineInput input(STDIN_FILENO);
  if (call == u"session") {
    if (!options.rest.isEmpty())
      return refuse(errors, u"session takes no further arguments"_s);
    return Session(options, delivered::file, input, output, options.runs).run();
  }
  if (call == u"batch") {
    if (!options.rest.isEmpty())
      return refuse(errors, u"batch takes no further arguments"_s);
    return runBatch(input, output) ? 0 : outputLost;
  }
  return refuse(errors, u"unknown call " + call);
}

} // namespace

int main(int argc, char** argv) {
  guardStandardStreams();
  useUtf8();
  QCoreApplication app(argc, argv);
  QCoreApplication::setApplicationName(u"soran"_s);
  StandardStream output(STDOUT_FILENO);
  StandardStream errors(STDERR_FILENO);
  const LaunchOptions options = readOptions(QCoreApplication::arguments().mid(1));
  if (!options.error.isEmpty())
    return refuse(errors, options.error);
  if (options.help)
    return told(output.writeAll(helpText()) ? 0 : outputLost, output, errors);
  if (options.version)
    return told(output.tell(u"soran-cli "_s + programVersion + u'\n') ? 0 : outputLost, output, errors);
  if (options.rest.isEmpty()) {
    if (isatty(STDIN_FILENO) == 0 || isatty(STDOUT_FILENO) == 0)
      return refuse(errors, u"no call given, and no terminal; see soran-cli --help"_s);
    if (!readlineLibrary().isLoaded())
      return refuse(errors, u"cannot load libreadline.so.8"_s);
    const TerminalStyle style = terminalStyle(qgetenv("TERM"), qgetenv("COLORTERM"), qgetenv("NO_COLOR"));
    return Interactive(options, delivered::file, style).run();
  }
  return told(runCall(options, output, errors), output, errors);
}
