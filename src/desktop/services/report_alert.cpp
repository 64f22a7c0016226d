// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/services/report_alert.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

class AlertInterface : public QAccessibleWidget {
 public:
  explicit AlertInterface(QWidget* widget) : QAccessibleWidget(widget, QAccessible::Notification) {}

  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Name ? static_cast<ReportAlert*>(widget())->text() : QString();
  }

  QAccessible::State state() const override {
    QAccessible::State state;
    state.readOnly = true;
    state.invisible = static_cast<ReportAlert*>(widget())->text().isEmpty();
    return state;
  }
};

QAccessibleInterface* makeInterface(const QString&, QObject* object) {
  auto* alert = qobject_cast<ReportAlert*>(object);
  return alert ? new AlertInterface(alert) : nullptr;
}

} // namespace

ReportAlert::ReportAlert(const QString& name, QWidget* window) : QWidget(window) {
  QAccessible::installFactory(makeInterface);
  setObjectName(name);
  setAttribute(Qt::WA_TransparentForMouseEvents);
  // One that comes up with the window would be spoken without a text.
  hide();
}

void ReportAlert::announce(const QString& text) {
  text_ = text;
  // Linux readers speak a notification that comes up, the others an alert.
  for (const QAccessible::Event kind :
       {QAccessible::NameChanged, QAccessible::ObjectShow, QAccessible::Alert}) {
    QAccessibleEvent event(this, kind);
    QAccessible::updateAccessibility(&event);
  }
}

} // namespace soran
