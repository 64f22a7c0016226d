// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <optional>
#include <variant>

namespace soran {

/// The table that the dictionary form edits.
enum class DictionaryMode { Abbreviations, Phrases, Pictures };

/// The small windows of the program, each a type that carries what it needs. `name` is its name in a
/// session's state and for assistive technology: that of the form in the first edition of the program.
/// `goesWithWindow` marks one that goes and comes with the main window, with what it held.
namespace form {

// Shown beside the main window.
struct NoConnection {
  static constexpr QStringView name = u"noconnectmsg";
};
struct Version {
  static constexpr QStringView name = u"version";
};
struct Components {
  static constexpr QStringView name = u"compornent";
};
struct Commands {
  static constexpr QStringView name = u"command";
  static constexpr bool goesWithWindow = true;
};
struct Log {
  static constexpr QStringView name = u"log";
  static constexpr bool goesWithWindow = true;
};
struct SunTimes {
  static constexpr QStringView name = u"suntime";
};
struct Charts {
  static constexpr QStringView name = u"chart";
  static constexpr bool goesWithWindow = true;
};
struct Cameras {
  static constexpr QStringView name = u"camera";
  static constexpr bool goesWithWindow = true;
};
/// The watched airports at a glance.
struct Board {
  static constexpr QStringView name = u"board";
  static constexpr bool goesWithWindow = true;
  QString group = {}; ///< whose airports it shows; those of the automatic list where it is empty
};
/// The same on a map.
struct Map {
  static constexpr QStringView name = u"map";
  static constexpr bool goesWithWindow = true;
  QString group = {}; ///< as that of the board
};
/// The weather of a station on one axis of time.
struct Graph {
  static constexpr QStringView name = u"graph";
  static constexpr bool goesWithWindow = true;
  QString code = {};
};
/// The network was lost.
struct Alert {
  static constexpr QStringView name = u"message";
};
/// The cycle found new reports.
struct NewReports {
  static constexpr QStringView name = u"datachange";
};
/// The icon in the tray.
struct TaskIcon {
  static constexpr QStringView name = u"taskicon";
  bool connected = true;
};
/// A picture, handed over in the file data/figure.dat.
struct Picture {
  static constexpr QStringView name = u"pictureform";
};
/// The meaning of a selected group, beside the mouse.
struct Tip {
  static constexpr QStringView name = u"tooltips";
  QString text = {};
};
/// The fonts of the system are being read.
struct FontNote {
  static constexpr QStringView name = u"fontmsg";
};

// Shown until the user has closed them; `Outcome` is what the user decided there.
struct EditAirports {
  static constexpr QStringView name = u"airport";
  using Outcome = std::monostate;
};
struct EditAutoList {
  static constexpr QStringView name = u"decodelist";
  using Outcome = std::monostate;
};
struct EditGroups {
  static constexpr QStringView name = u"company";
  using Outcome = std::monostate;
};
/// The limits of single airports.
struct EditLimits {
  static constexpr QStringView name = u"limits";
  using Outcome = std::monostate;
};
struct EditDictionary {
  static constexpr QStringView name = u"weather";
  using Outcome = std::monostate;
  DictionaryMode mode = DictionaryMode::Abbreviations;
};
struct EditSettings {
  static constexpr QStringView name = u"opton";
  struct Outcome {
    bool hoursChanged = false; ///< a sequence spans other hours than before
  };
};
/// Some charts are PDF files.
struct PdfNotice {
  static constexpr QStringView name = u"adobeinfo";
  struct Outcome {
    bool dontShowAgain = false; ///< the check box is on
    bool banner = false;        ///< closed by a click on the banner, for the download of a reader
  };
};

} // namespace form

/// A form beside the main window.
using Form =
    std::variant<form::NoConnection, form::Version, form::Components, form::Commands, form::Log,
                 form::SunTimes, form::Charts, form::Cameras, form::Board, form::Map, form::Graph,
                 form::Alert, form::NewReports, form::TaskIcon, form::Picture, form::Tip, form::FontNote>;

/// A form that the user answers.
using ModalForm = std::variant<form::NoConnection, form::EditAirports, form::EditAutoList, form::EditGroups,
                               form::EditLimits, form::EditDictionary, form::EditSettings, form::PdfNotice>;
using ModalOutcome = std::variant<std::monostate, form::EditSettings::Outcome, form::PdfNotice::Outcome>;

template <class... Kinds>
QString nameOf(const std::variant<Kinds...>& form) {
  return std::visit([](const auto& kind) { return kind.name.toString(); }, form);
}

/// Whether the form is marked so above.
inline bool goesWithWindow(const Form& form) {
  return std::visit(
      [](const auto& kind) {
        return requires {
          kind.goesWithWindow;
        };
      },
      form);
}

/// Shows the forms. What they show and do lies in classes of the core; a front end mirrors these.
class Forms {
 public:
  virtual ~Forms() = default;

  /// Shows the form beside the main window.
  virtual void show(const Form& form) = 0;

  /// Takes the form of that kind off the screen.
  virtual void hide(const Form& form) = 0;

  /// The columns of a list that is shown as text on the screen; nothing where it has a form of its own.
  virtual std::optional<int> textColumns() const { return std::nullopt; }

  /// Shows the form and returns what the user decided when it has closed; nothing where it closed without.
  virtual ModalOutcome showModal(const ModalForm& form) = 0;

  /// The same with the outcome of the form's own type.
  template <class Kind>
  std::optional<typename Kind::Outcome> ask(const Kind& form) {
    const ModalOutcome outcome = showModal(form);
    const auto* decided = std::get_if<typename Kind::Outcome>(&outcome);
    return decided ? std::optional(*decided) : std::nullopt;
  }
};

} // namespace soran
