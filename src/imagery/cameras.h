// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringView>
#include <optional>
#include <span>

/// Live pictures of airfields and cities, as the menu of the window camera.
namespace soran {

/// An item of the menu, in menu order.
struct Camera {
  QStringView menu;    ///< name of the item
  QStringView caption; ///< menu text
  QStringView source;  ///< key of the server
  QStringView path;    ///< path and query on it
  bool refresh;        ///< a still picture that the program reloads; else a page that refreshes itself
};

/// What the window shows.
struct CameraView {
  QString source;  ///< key of the server
  QString address; ///< path and query on it
  QString title;   ///< the window's title
  bool refresh = false;
  bool operator==(const CameraView&) const = default;
};

std::span<const Camera> cameras() noexcept;

/// What a menu item shows, its title with a leading blank; nothing for an unknown name.
std::optional<CameraView> cameraView(QStringView menu);

/// The window camera without its window: what it shows and when it reloads.
class CameraModel {
 public:
  /// The first picture, at the window's load: 新千歳空港, without the leading blank in the title.
  CameraView open();

  /// An item of the menu is chosen; nothing for one that the menu does not have.
  std::optional<CameraView> choose(QStringView menu);

  /// A second has passed; true where the picture is to be reloaded, once a minute.
  bool tick();

 private:
  bool refresh_ = false;
  int seconds_ = 0;
};

} // namespace soran
