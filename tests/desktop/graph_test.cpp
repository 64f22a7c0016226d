// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/forms/graph_form.h"
#include "desktop/widgets/drawing_view.h"
#include "fakes/world.h"
#include "support/own_folder.h"
#include "window_fixture.h"

#include <QLineEdit>
#include <QPrinter>
#include <QSvgRenderer>
#include <QTableWidget>

namespace soran {
namespace {

using namespace Qt::StringLiterals;

class GraphWindowTest : public WindowTest {
 protected:
  GraphForm& shownGraph(const QString& line) {
    options_.demo = true;
    start();
    timers_.step();
    type(line);
    return *qobject_cast<GraphForm*>(desktop_->forms().widget(form::Graph{}));
  }
  /// The values of an element that the picture shows, by their words.
  static QStringList valuesOf(const GraphForm& form, const QString& element) {
    QStringList words;
    for (const Shape& shape : form.findChild<DrawingView*>()->drawing().shapes) {
      if (shape.element == element)
        words += shape.words;
    }
    return words;
  }
};

TEST_F(GraphWindowTest, ShowsTheSameInPictureAndTable) {
  GraphForm& form = shownGraph(u"GRAPH RJTT"_s);
  ASSERT_TRUE(form.isVisible());
  const auto& table = *form.findChild<QTableWidget*>();
  QStringList winds;
  for (int row = 0; row < table.rowCount(); ++row) {
    if (const QString wind = table.item(row, 2)->text(); !wind.isEmpty())
      winds += wind;
  }
  EXPECT_FALSE(winds.isEmpty());
  QStringList drawn = valuesOf(form, u"WIND"_s);
  drawn.sort();
  winds.sort();
  EXPECT_EQ(drawn, winds);
  // Another airport by its code; what is none is left alone.
  auto& code = *form.findChild<QLineEdit*>();
  const QString before = form.windowTitle();
  code.setText(u"RJ"_s);
  QTest::keyClick(&code, Qt::Key_Return);
  EXPECT_EQ(form.windowTitle(), before);
  code.setText(u"rjaa"_s);
  QTest::keyClick(&code, Qt::Key_Return);
  EXPECT_TRUE(form.windowTitle().endsWith(u"RJAA"));
  QTest::keyClick(&form, Qt::Key_Escape);
  EXPECT_FALSE(form.isVisible());
}

TEST_F(GraphWindowTest, IsSavedAndPrinted) {
  const GraphForm& form = shownGraph(u"GRAPH RJTT"_s);
  const OwnFolder folder;
  ASSERT_TRUE(form.writeTo(folder.filePath(u"graph.png"_s)));
  EXPECT_EQ(QImage(folder.filePath(u"graph.png"_s)).size(), QSize(2400, 1400));
  ASSERT_TRUE(form.writeTo(folder.filePath(u"graph.svg"_s)));
  EXPECT_TRUE(QSvgRenderer(folder.filePath(u"graph.svg"_s)).isValid());
  EXPECT_TRUE(contents(folder.filePath(u"graph.svg"_s)).contains("RJTT"));
  for (const QString& name : {u"none/graph.png"_s, u"none/graph.svg"_s})
    EXPECT_FALSE(form.writeTo(folder.filePath(name)));
  QPrinter printer;
  printer.setOutputFileName(folder.filePath(u"graph.pdf"_s));
  ASSERT_TRUE(form.print(printer));
  EXPECT_TRUE(contents(folder.filePath(u"graph.pdf"_s)).startsWith("%PDF"));
}

} // namespace
} // namespace soran
