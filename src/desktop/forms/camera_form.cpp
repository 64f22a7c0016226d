// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/forms/camera_form.h"

#include "imagery/image_choice.h"

#include <QMenu>
#include <algorithm>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

/// The cameras' own size.
constexpr QSize cameraSize(640, 480);
constexpr QStringView caption = u"ライブカメラ";

} // namespace

CameraForm::CameraForm(QWidget* parent, Terminal& terminal) : ImageryForm(parent, terminal) {
  setObjectName(u"camera"_s);
  setAccessibleName(caption.toString());
  QMenu* menu = menuBar().addMenu(caption.toString());
  menu->setObjectName(u"menu_camera"_s);
  menu->setAccessibleName(caption.toString());
  for (const Camera& camera : cameras())
    addEntry(*menu, camera.menu.toString(), -1, camera.caption.toString(),
             cameraRow(terminal.program().services.endpoints, camera));
}

void CameraForm::begin() {
  model_ = CameraModel();
  layOut(cameraSize, false);
  present(model_.open());
}

void CameraForm::choose(const QString& menu, std::optional<int>) {
  if (const auto shown = model_.choose(menu))
    present(*shown);
}

void CameraForm::present(const CameraView& shown) {
  setWindowTitle(shown.title);
  const Endpoints& endpoints = terminal().program().services.endpoints;
  const auto camera = std::ranges::find(cameras(), shown.source, &Camera::source);
  load({cameraRow(endpoints, *camera), shown.source, shown.address});
}

} // namespace soran
