// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/menus.h"

#include "terminal/actions.h"
#include "terminal/data_exchange.h"
#include "terminal/terminal.h"

#include <algorithm>
#include <span>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

/// What an entry can depend on, each a bit.
enum Condition : unsigned {
  Always = 0,
  Network = 1,
  NoPane = 2,   ///< no page of the browser pane has taken the menus
  NoPage = 4,   ///< no page stands in place of the screen
  Pane = 8,     ///< a page stands there
  Printer = 16, ///< one is installed
  Airports = 32,
  Groups = 64,
  Popup = 128,  ///< the popup menu is wanted
  Browser = 256 ///< pages are shown in the pane
};

enum class Kind { Menu, Item, Separator, AirportRows, GroupRows };

struct Entry {
  Kind kind;
  QStringView name;
  QStringView caption;
  QStringView parent;
  unsigned enabledWith;
  unsigned visibleWith;
  void (*act)(Terminal&);
};

constexpr QStringView leaveCaption = u"SORAN を終了";
constexpr QStringView closePaneCaption = u"ブラウザーを閉じる";

// clang-format off
constexpr Entry entries[] = {
    {Kind::Menu, u"menu_file", u"ファイル", u"", Always, Always, nullptr},
    {Kind::Item, u"menu_print", u"印刷", u"menu_file", Printer | NoPane, Always, action::printFromMenu},
    {Kind::Item, u"menu_save", u"保存", u"menu_file", NoPane, Always, action::save},
    {Kind::Item, u"menu_export", u"データの書き出し", u"menu_file", NoPane, Always, exportUserData},
    {Kind::Item, u"menu_import", u"データの読み込み", u"menu_file", NoPane, Always, importUserData},
    {Kind::Item, u"menu_exit", leaveCaption, u"menu_file", Always, Always, action::leave},
    {Kind::Menu, u"menu_list", u"シーケンス", u"", Network | Airports | NoPane, Always, nullptr},
    {Kind::AirportRows, u"menu_listAP", u"", u"menu_list", Always, Always, nullptr},
    {Kind::Menu, u"menu_company", u"グループ", u"", Network | NoPane, Always, nullptr},
    {Kind::Item, u"menu_company_edit", u"グループ編集", u"menu_company", Always, Always, action::groupListFromMenu},
    {Kind::Separator, u"menu_company_line", u"", u"menu_company", Always, Groups, nullptr},
    {Kind::GroupRows, u"menu_company_data", u"", u"menu_company", Always, Groups, nullptr},
    {Kind::Menu, u"menu_weather", u"気象情報", u"", Always, Always, nullptr},
    {Kind::Item, u"menu_chart", u"天気図", u"menu_weather", Network, Always, action::charts},
    {Kind::Item, u"menu_yahoo", u"Yahoo 空港天気予報", u"menu_weather", Always, Always, action::yahoo},
    {Kind::Item, u"menu_suntime", u"日出没時刻", u"menu_weather", Always, Always, action::sunTimes},
    {Kind::Item, u"menu_info_weather", u"天気略語", u"menu_weather", NoPane, Always, action::abbreviations},
    {Kind::Item, u"menu_ais", u"AIS JAPAN", u"menu_weather", Always, Always, action::ais},
    {Kind::Item, u"menu_camera", u"ライブカメラ", u"menu_weather", Network, Always, action::cameras},
    {Kind::Item, u"menu_board", u"監視ボード", u"menu_weather", NoPane, Always, action::board},
    {Kind::Item, u"menu_map", u"地図", u"menu_weather", NoPane, Always, action::map},
    {Kind::Item, u"menu_graph", u"気象グラフ", u"menu_weather", NoPane, Always, action::graph},
    {Kind::Item, u"menu_limits", u"空港別制限", u"menu_weather", NoPane, Always, action::limits},
    {Kind::Menu, u"menu_setup", u"設定", u"", Always, Always, nullptr},
    {Kind::Item, u"menu_airport", u"飛行場リスト", u"menu_setup", NoPane, Always, action::airportList},
    {Kind::Item, u"menu_autodecode", u"自動デコードリスト", u"menu_setup", NoPane, Always, action::decodeListFromMenu},
    {Kind::Item, u"menu_option", u"動作設定", u"menu_setup", NoPane, Always, action::settings},
    {Kind::Item, u"menu_update", u"アップデート", u"menu_setup", Network | NoPane, Always, action::checkForUpdate},
    {Kind::Item, u"menu_command", u"コマンド一覧", u"menu_setup", NoPane, Always, action::commandList},
    {Kind::Menu, u"menu_info", u"情報", u"", Always, Always, nullptr},
    {Kind::Item, u"menu_info_version", u"バージョン情報", u"menu_info", Always, Always, action::version},
    {Kind::Item, u"menu_info_compornent", u"コンポーネント情報", u"menu_info", Always, Always, action::components},
    {Kind::Item, u"menu_info_log", u"通信ログ", u"menu_info", NoPane, Always, action::runningLog},
    {Kind::Item, u"menu_info_board", u"SORAN 掲示板", u"menu_info", Always, Always, nullptr},
    {Kind::Item, u"menu_info_help", u"オンライン ヘルプ", u"menu_info", Network, Always, action::help},
    {Kind::Item, u"menu_info_homepage", u"SORAN Homepage", u"menu_info", Network, Always, action::homePage},
    {Kind::Menu, u"menu_popup", u"ポップアップ", u"", Always, Popup, nullptr},
    {Kind::Menu, u"menu_popup_group", u"グループ", u"menu_popup", Network | Groups, Always, nullptr},
    {Kind::GroupRows, u"menu_popup_group_data", u"", u"menu_popup_group", Always, Groups, nullptr},
    {Kind::Item, u"menu_popup_wx", u"天気図", u"menu_popup", Network, Always, action::charts},
    {Kind::Item, u"menu_popup_cam", u"ライブカメラ", u"menu_popup", Network, Always, action::cameras},
    {Kind::Item, u"menu_popup_suntime", u"日出没時刻", u"menu_popup", Always, Always, action::sunTimes},
    {Kind::Item, u"menu_popup_print", u"印刷", u"menu_popup", Printer, Always, action::printFromMenu},
    {Kind::Item, u"menu_popup_save", u"保存", u"menu_popup", Always, Always, action::save},
    {Kind::Item, u"menu_popup_log", u"通信ログ", u"menu_popup", Always, Always, action::runningLog},
    {Kind::Item, u"menu_popup_command", u"コマンド一覧", u"menu_popup", Always, Always, action::commandList},
    {Kind::Item, u"menu_popup_config", u"動作設定", u"menu_popup", Always, Always, action::settings},
    {Kind::Item, u"menu_popup_ap", u"飛行場リスト", u"menu_popup", Always, Always, action::airportList},
    {Kind::Item, u"menu_popup_de", u"自動デコードリスト", u"menu_popup", Always, Always, action::decodeListFromMenu},
    {Kind::Item, u"menu_popup_company", u"グループ編集", u"menu_popup", Always, Always, action::groupListFromMenu},
    {Kind::Item, u"menu_popup_ais", u"AIS JAPAN", u"menu_popup", Always, Always, action::ais},
    {Kind::Item, u"menu_popup_help", u"オンライン ヘルプ", u"menu_popup", Network, Always, action::help},
    {Kind::Item, u"menu_popup_homepage", u"SORAN Homepage", u"menu_popup", Network, Always, action::homePage},
    {Kind::Item, u"menu_popup_exit", leaveCaption, u"menu_popup", Always, Always, action::leave},
};

struct Button {
  int index;
  QStringView hover;
  unsigned enabledWith;
  unsigned visibleWith;
  void (*act)(Terminal&);
};

constexpr Button buttonTable[] = {
    {0, u" SORAN を終了 ", Always, Always, action::leave},
    {1, u" 保存 ", NoPage, Always, action::save},
    {2, u" 印刷 ", Always, Always, action::printByButton},
    {3, u" 自動デコード停止 ", Always, Always, action::stopAutomatic},
    {5, u" リロード ", Always, Always, action::reloadByButton},
    {6, u" 画面消去 ", Always, Always, action::clearScreenByButton},
    {7, u" スクロールバー表示 ", Always, Always, action::toggleScrollBar},
    {8, u" ボールド表示 ", Always, Always, action::toggleBold},
    {9, u" 動作設定 ", Always, Always, action::settings},
    {10, u" 更新確認 ", Always, Always, action::checkForUpdate},
    {11, u" コマンド一覧 ", NoPage, Always, action::commandList},
    {12, u" Yahoo 空港天気予報 ", Always, Browser, action::yahoo},
    {13, u" SORAN homepage ", Always, Browser, action::homePage},
    {14, u" Online Help ", Always, Browser, action::helpByButton},
    {15, u" ブラウザーを閉じる ", Pane, Browser, action::closePane},
    {16, u" 戻る ", Pane | Network, Browser, action::goBack},
    {17, u" 自動デコード開始 ", Network, Always, action::startAutomaticByButton},
    {40, u" 監視ボード ", NoPage, Always, action::board},
};
// clang-format on

unsigned conditionsOf(Terminal& terminal) {
  Program& program = terminal.program();
  const Settings& settings = program.settings();
  const std::pair<bool, unsigned> states[] = {
      {program.networkAvailable, Network},
      {!terminal.pane().menusTaken(), NoPane},
      {!terminal.pane().visible(), NoPage},
      {terminal.pane().visible(), Pane},
      {!program.services.printers.installed().isEmpty(), Printer},
      {!terminal.menus().airportCaptions().isEmpty(), Airports},
      {program.tables.groups().recordCount() > 0, Groups},
      {settings[key::ポップアップ] == true, Popup},
      {settings[key::ブラウザー] == true, Browser},
  };
  unsigned holding = 0;
  for (const auto& [holds, condition] : states)
    holding |= holds ? condition : 0;
  return holding;
}

constexpr bool allOf(unsigned wanted, unsigned holding) {
  return (wanted & ~holding) == 0;
}

QStringList groupCaptions(const Program& program) {
  QStringList captions;
  for (const Group& group : program.tables.groupRows())
    captions.append(group.id);
  return captions;
}

/// The entry's item without its index, its conditions joined with those of the menu around it.
MenuItem itemOf(const Entry& entry, unsigned holding, const QList<MenuItem>& above) {
  MenuItem item{.name = entry.name.toString(),
                .caption = entry.caption.toString(),
                .parent = entry.parent.toString(),
                .isMenu = entry.kind == Kind::Menu,
                .visible = allOf(entry.visibleWith, holding),
                .enabled = allOf(entry.enabledWith, holding)};
  const auto around = std::ranges::find(above, item.parent, &MenuItem::name);
  if (around != above.end()) {
    item.visible = item.visible && around->visible;
    item.enabled = item.enabled && around->enabled;
  }
  return item;
}

} // namespace

void Menus::takeAirports() {
  airportCaptions_.clear();
  for (const Airport& airport : terminal_.program().tables.airportRows())
    airportCaptions_.append(airport.code + u"  " + airport.name);
  listener_.onMenusChanged();
}

QList<MenuItem> Menus::items() const {
  const unsigned holding = conditionsOf(terminal_);
  QList<MenuItem> list;
  for (const Entry& entry : entries) {
    MenuItem item = itemOf(entry, holding, list);
    if (item.name == u"menu_exit" && terminal_.pane().menusTaken())
      item.caption = closePaneCaption.toString();
    if (entry.kind != Kind::AirportRows && entry.kind != Kind::GroupRows) {
      list.append(item);
      continue;
    }
    const QStringList captions =
        entry.kind == Kind::AirportRows ? airportCaptions_ : groupCaptions(terminal_.program());
    for (const QString& caption : captions) {
      ++item.index;
      item.caption = caption;
      list.append(item);
    }
  }
  return list;
}

std::optional<MenuItem> Menus::find(const QString& name, std::optional<int> index) const {
  QList<MenuItem> named = items();
  named.removeIf([&name](const MenuItem& item) { return item.name != name; });
  if (!index && named.size() > 1)
    return std::nullopt;
  const int wanted = index.value_or(1);
  return wanted >= 1 && wanted <= named.size() ? std::optional(named[wanted - 1]) : std::nullopt;
}

/// The first row of a list without rows is hidden rather than missing.
bool Menus::isEmptyList(const QString& name) const {
  const auto* entry = std::ranges::find(entries, QStringView(name), &Entry::name);
  if (entry == std::end(entries))
    return false;
  return (entry->kind == Kind::AirportRows && airportCaptions_.isEmpty()) ||
         (entry->kind == Kind::GroupRows && groupCaptions(terminal_.program()).isEmpty());
}

void Menus::run(const MenuItem& item) {
  const auto* entry = std::ranges::find(entries, QStringView(item.name), &Entry::name);
  terminal_.guarded([&] {
    if (entry->kind == Kind::AirportRows)
      action::startAirport(terminal_, item.caption);
    else if (entry->kind == Kind::GroupRows)
      action::startGroup(terminal_, item.caption);
    else if (entry->act)
      entry->act(terminal_);
  });
}

bool Menus::choose(const QString& name, std::optional<int> index) {
  const std::optional<MenuItem> item = find(name, index);
  if (item && item->visible && item->enabled)
    run(*item);
  return item.has_value() || (index.value_or(1) == 1 && isEmptyList(name));
}

bool Menus::chooseShown(const QString& name, std::optional<int> index) {
  const std::optional<MenuItem> item = find(name, index);
  if (item)
    run(*item);
  return item.has_value();
}

QList<ToolButton> Menus::buttons() const {
  const unsigned holding = conditionsOf(terminal_);
  const bool coloured = terminal_.program().settings()[key::コマンドボタン] == true;
  QList<ToolButton> list;
  for (const Button& each : buttonTable)
    list.append({.index = each.index,
                 .hover = each.hover.toString(),
                 .visible = allOf(each.visibleWith, holding),
                 .enabled = allOf(each.enabledWith, holding),
                 .coloured = coloured});
  if (terminal_.pane().menusTaken())
    list.front().hover = u' ' + closePaneCaption + u' ';
  return list;
}

bool Menus::button(int index) {
  const auto* wanted = std::ranges::find(buttonTable, index, &Button::index);
  if (wanted == std::end(buttonTable))
    return false;
  const unsigned holding = conditionsOf(terminal_);
  if (allOf(wanted->visibleWith, holding) && allOf(wanted->enabledWith, holding))
    terminal_.guarded([&] { wanted->act(terminal_); });
  return true;
}

} // namespace soran
