#include "pressure/pressurewindow.h"

#include <QSignalSpy>

#include "support.h"

using namespace moistair;
using namespace moistair::windowtest;

namespace {

struct Readouts {
  std::string inhg, psi, feet;

  bool operator==(const Readouts&) const = default;
};

Readouts readouts(PressureWindow& window) {
  return {text(window, "Label8"), text(window, "Label9"), text(window, "Label10")};
}

void choose(PressureWindow& window, int unit) { control<ListBox>(window, "Combo1").select(unit); }

QLineEdit& entry(PressureWindow& window) { return control<QLineEdit>(window, "Text1"); }

}  // namespace

TEST(PressureWindow, AtOpening) {
  PressureWindow window(nullptr);
  const struct {
    const char *name, *text;
  } rows[] = {
      {"Label1", "Choose unit"},
      {"Label2", "Input value"},
      {"Label3", "Chart atmoshperic pressure setting"},
      {"Label4", "Inches of Hg"},
      {"Label5", "Inches of Hg"},
      {"Label6", "Pound/sq inch"},
      {"Label7", "Elevation in feet"},
      {"Label8", "29.92126"},
      {"Label9", "14.695949526166"},
      {"Label10", ""},
      {"Label11", ""},
      {"Text1", "29.92126"},
      {"Command1", "Set/Change chart atmos. pressure"},
      {"Command2", "Return to chart"},
  };
  EXPECT_EQ(window.objectName().toStdString(), "Form2");
  EXPECT_EQ(window.windowTitle().toStdString(), "Change pressure");
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(text(window, row.name), row.text);
  }
  EXPECT_EQ(control<ListBox>(window, "Combo1").currentText().toStdString(), "Default");
  EXPECT_FALSE(entry(window).isEnabled());
}

TEST(PressureWindow, EachUnitHasItsWords) {
  const struct {
    const char* name;
    int unit;
    const char *entryunit, *hint;
  } rows[] = {
      {"inches", 1, "Inches of Hg", "(5.906 - 147.65)"},
      {"pounds", 2, "Pounds/sq inch", "(2.9 - 72.5)"},
      {"elevation", 3, "Elevation in feet", "(0 - 38650)"},
  };
  PressureWindow window(nullptr);
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    choose(window, row.unit);
    EXPECT_EQ(text(window, "Label4"), row.entryunit);
    EXPECT_EQ(text(window, "Label11"), row.hint);
    EXPECT_TRUE(entry(window).isEnabled());
    EXPECT_EQ(text(window, "Text1"), "");
    EXPECT_EQ(readouts(window), (Readouts{"", "", ""}));
    type(window, "Text1", "6");
  }
}

TEST(PressureWindow, ReadoutsFollowTheTyping) {
  PressureWindow window(nullptr);
  choose(window, 2);
  type(window, "Text1", "14.7");
  EXPECT_EQ(readouts(window), (Readouts{"29.9295087", "14.7", ""}));
  type(window, "Text1", "");
  EXPECT_EQ(readouts(window), (Readouts{"", "14.7", ""}));
  type(window, "Text1", "29.92126");
  choose(window, 0);
  EXPECT_EQ(readouts(window), (Readouts{"29.92126", "14.695949526166", ""})) << "the entry's text did not change";
  choose(window, 3);
  type(window, "Text1", "5000");
  EXPECT_EQ(readouts(window), (Readouts{"24.8961078291965", "12.227825434352", "5000"}));
  choose(window, 0);
  EXPECT_EQ(readouts(window), (Readouts{"29.92126", "14.695949526166", "5000"})) << "the last elevation stays";
}

TEST(PressureWindow, ATypedUnitAnswersNothing) {
  PressureWindow window(nullptr);
  choose(window, 1);
  type(window, "Text1", "30");
  control<ListBox>(window, "Combo1").setEditText(QStringLiteral("fathoms"));
  type(window, "Text1", "31");
  EXPECT_EQ(readouts(window), (Readouts{"30", "14.734623", ""}));
}

TEST(PressureWindow, SettingAsksWritesAndTests) {
  const struct {
    const char* name;
    int unit;
    const char *entry, *written;
    bool set;
  } rows[] = {
      {"default", 0, nullptr, "29.92126", true},
      {"pounds", 2, "14.7", "29.9295087", true},
      {"pounds, below", 2, "2.89", "5.88410069", false},
      {"inches with a tail", 1, "30abc", "30abc", true},
      {"inches emptied", 1, "", "", false},
      {"elevation emptied", 3, "", "29.92134992", true},
      {"above the atmosphere", 3, "1e300", nullptr, false},
      {"typed unit", -1, nullptr, nullptr, true},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    PressureWindow window(nullptr);
    if (row.unit >= 0) choose(window, row.unit);
    if (row.unit < 0) control<ListBox>(window, "Combo1").setEditText(QStringLiteral("fathoms"));
    if (row.entry != nullptr) type(window, "Text1", row.entry);
    std::vector<std::string> written;
    QObject::connect(&window, &PressureWindow::pressurewritten, &window,
                     [&](const std::string& inhg) { written.push_back(inhg); });
    QSignalSpy set(&window, &PressureWindow::pressureset);
    const BoxAnswers boxes(QMessageBox::Yes);
    click(window, "Command1");
    EXPECT_EQ(written, row.written == nullptr ? std::vector<std::string>{} : std::vector<std::string>{row.written});
    EXPECT_EQ(set.count(), row.set ? 1 : 0);
    if (row.set) {
      EXPECT_EQ(set.front().at(0).toInt(), row.unit);
      EXPECT_EQ(set.front().at(1).toString(), entry(window).text());
    }
    ASSERT_EQ(boxes.boxes().size(), row.set ? 1U : 2U);
    if (!row.set) {
      EXPECT_EQ(boxes.lasttext(), "Atmospheric pressure input out of range, change value");
    }
  }
}

TEST(PressureWindow, NoChangesNothing) {
  PressureWindow window(nullptr);
  window.show();
  QSignalSpy set(&window, &PressureWindow::pressureset);
  QSignalSpy written(&window, &PressureWindow::pressurewritten);
  const BoxAnswers boxes(QMessageBox::No);
  click(window, "Command1");
  ASSERT_EQ(boxes.boxes().size(), 1U);
  EXPECT_EQ(boxes.boxes()[0].title, "DELETE");
  EXPECT_EQ(boxes.boxes()[0].text,
            "If you change the chart atmos pressure your chart,if any, will be cleared and you need to redraw the "
            "chart. Are You Sure ?");
  EXPECT_EQ(boxes.boxes()[0].buttons, QMessageBox::Yes | QMessageBox::No);
  EXPECT_EQ(set.count() + written.count(), 0);
  EXPECT_TRUE(window.isVisible());
}

TEST(PressureWindow, EveryWayOutIsTheWayBack) {
  PressureWindow window(nullptr);
  window.show();
  QSignalSpy left(&window, &PressureWindow::left);
  click(window, "Command2");
  QTest::keyClick(&window, Qt::Key_Escape);
  window.close();
  EXPECT_EQ(left.count(), 3);
}

TEST(PressureWindow, AnEndlessEntryDoesNotWidenIt) {
  PressureWindow window(nullptr);
  window.show();
  choose(window, 3);
  const QSize before = window.minimumSizeHint();
  entry(window).setText(QString(10'000, u'9'));
  EXPECT_EQ(window.minimumSizeHint(), before);
  EXPECT_EQ(text(window, "Label10").size(), 10'000U);
}
