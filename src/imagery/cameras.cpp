// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "imagery/cameras.h"

#include <algorithm>

namespace soran {

namespace {

// clang-format off
constexpr Camera allCameras[] = {
    {u"menu_haneda", u"羽田空港", u"camera_haneda",
     u"/ImageViewer?Mode=Motion&Resolution=640x480&Quality=Clarity&Interval=10", false},
    {u"menu_shinnchitose", u"新千歳空港", u"camera_shinnchitose",
     u"/camera/chitose_L.jpg", true},
    {u"menu_sapporo", u"札幌市街", u"camera_sapporo",
     u"/camera/sapporo_L.jpg", true},
    {u"menu_asahikawa", u"旭川市街", u"camera_asahikawa",
     u"/camera/asahikawa_L.jpg", true},
    {u"menu_hakodate", u"函館市街", u"camera_hakodate",
     u"/camera/hakodate_L.jpg", true},
    {u"menu_sendai", u"仙台空港", u"camera_sendai",
     u"/liveimage/live.jpg", true},
    {u"menu_fukushima", u"福島空港", u"camera_fukushima",
     u"/kukouoffice/photo1.jpg", true},
    {u"menu_toyama", u"富山空港", u"camera_toyama",
     u"/picture/camera/gsvr_arisawa/NOW003.jpg", true},
    {u"menu_komatsu", u"小松空港", u"camera_komatsu",
     u"/-wvhttp-01-/GetOneShot", true},
    {u"menu_suisha", u"インディアン水車", u"camera_suisha",
     u"/CgiStart?page=Single&Resolution=640x480&Quality=Standard&RPeriod=0&Size=STD&PresetOperation=Move&Language=1", false},
};
// clang-format on

constexpr QStringView firstCamera = u"menu_shinnchitose";

const Camera* find(QStringView menu) noexcept {
  const auto* camera = std::ranges::find(allCameras, menu, &Camera::menu);
  return camera == std::end(allCameras) ? nullptr : camera;
}

} // namespace

std::span<const Camera> cameras() noexcept {
  return allCameras;
}

std::optional<CameraView> cameraView(QStringView menu) {
  const Camera* camera = find(menu);
  if (!camera)
    return std::nullopt;
  return CameraView{camera->source.toString(), camera->path.toString(), u' ' + camera->caption.toString(),
                    camera->refresh};
}

CameraView CameraModel::open() {
  CameraView view = choose(firstCamera).value_or(CameraView{});
  view.title.remove(0, 1);
  return view;
}

std::optional<CameraView> CameraModel::choose(QStringView menu) {
  std::optional<CameraView> view = cameraView(menu);
  if (!view)
    return view;
  refresh_ = view->refresh;
  if (refresh_)
    seconds_ = 0;
  return view;
}

bool CameraModel::tick() {
  constexpr int refreshSeconds = 60;
  if (++seconds_ < refreshSeconds)
    return false;
  seconds_ = 0;
  return refresh_;
}

} // namespace soran
