// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/forms/chart_form.h"

#include "imagery/image_choice.h"

#include <QMenu>
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>
#include <map>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

constexpr int twipsPerPixel = 15;

/// Makes the sub-menus where the first of their entries asks for them, each in the one around it.
class SubmenuMaker {
 public:
  explicit SubmenuMaker(QMenu* root) { menus_[QString()] = root; }

  QMenu& menu(const QString& name) {
    QMenu*& menu = menus_[name];
    for (const ChartSubmenu& submenu : chartSubmenus()) {
      if (menu || submenu.name != name)
        continue;
      menu = this->menu(submenu.parent.toString()).addMenu(submenu.caption.toString());
      menu->setObjectName(name);
      menu->setAccessibleName(submenu.caption.toString());
    }
    return *menu;
  }

 private:
  std::map<QString, QMenu*> menus_;
};

} // namespace

ChartForm::ChartForm(QWidget* parent, Terminal& terminal) : ImageryForm(parent, terminal) {
  setObjectName(u"chart"_s);
  setAccessibleName(ChartModel::chartCaption.toString());
  makeMenus();
}

void ChartForm::makeMenus() {
  QAction* exit = menuBar().addAction(ChartModel::closeCaption.toString(), this, &QDialog::close);
  exit->setObjectName(u"menu_exit"_s);
  print_ = menuBar().addAction(ChartModel::printCaption.toString(), this,
                               [this] { terminal().guarded([this] { printByMenu(); }); });
  print_->setObjectName(u"menu_print"_s);
  QMenu* root = menuBar().addMenu(ChartModel::chartCaption.toString());
  root->setObjectName(u"menu_chart"_s);
  root->setAccessibleName(ChartModel::chartCaption.toString());
  SubmenuMaker maker(root);
  for (const ChartItem& item : chartItems()) {
    QMenu& menu = maker.menu(item.submenu);
    if (item.isSeparator())
      menu.addSeparator();
    else
      addEntry(menu, item.menu, item.index, item.caption, rowOf(item));
  }
}

ImageRow ChartForm::rowOf(const ChartItem& item) const {
  Program& program = terminal().program();
  return chartRow(program.services.endpoints, item, program.services.clock.now(),
                  program.settings()[key::時差].value_or(QString()));
}

void ChartForm::begin() {
  const QSize main = parentWidget() ? parentWidget()->size() : size();
  Program& program = terminal().program();
  model_.emplace(TwipSize{main.width() * twipsPerPixel, main.height() * twipsPerPixel},
                 program.settings()[key::時差].value_or(QString()));
  const QDateTime now = program.services.clock.now();
  ChartShow first = model_->open(now);
  // Where the day's summary is served no more, its sub-menu has something that is.
  for (const ChartItem& item : chartItems()) {
    if (item.submenu == first.item.submenu && !rowOf(first.item).isAvailable() && rowOf(item).isAvailable())
      first = model_->choose(item.menu, item.index, now).value_or(first);
  }
  present(first);
}

void ChartForm::choose(const QString& menu, std::optional<int> index) {
  if (!model_)
    return;
  if (const auto shown = model_->choose(menu, index, terminal().program().services.clock.now()))
    present(*shown);
}

void ChartForm::present(const ChartShow& shown) {
  setWindowTitle(shown.title);
  const bool anyPrinter = !terminal().program().services.printers.installed().isEmpty();
  const ImageRow row = rowOf(shown.item);
  ChartShow printed = shown;
  printed.printable = row.kind != ImageRow::Kind::Pdf;
  print_->setEnabled(ChartModel::printEnabled(printed, anyPrinter));
  layOut({shown.view.width / twipsPerPixel, shown.view.height / twipsPerPixel}, shown.maximised);
  load({row, shown.item.source, shown.item.path});
}

void ChartForm::printByMenu() {
  const QPointer<ChartForm> self(this);
  QPrinter printer(QPrinter::HighResolution);
  printer.setDocName(windowTitle().trimmed());
  printer.setPageSize(QPageSize(QPageSize::A4));
  printer.setPageOrientation(QPageLayout::Landscape);
  QPrintDialog dialog(&printer, this);
  Shutdown& shutdown = terminal().program().services.shutdown;
  connect(&shutdown, &Shutdown::closing, &dialog, &QDialog::reject);
  const bool accepted = dialog.exec() == QDialog::Accepted;
  shutdown.check();
  if (self && accepted)
    imagery().print(printer);
}

} // namespace soran
