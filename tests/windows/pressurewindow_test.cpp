#include "windows/pressurewindow.h"

#include "support.h"

using namespace moistair;
using namespace moistair::windowtest;

namespace {

constexpr int typedunit = -1;  ///< the list holds a text that is no unit

void choose(PressureWindow& window, int unit) {
  if (unit == typedunit) {
    control<ListBox>(window, "Combo1").setEditText(QStringLiteral("fathoms"));
  } else {
    select(window, "Combo1", unit);
  }
}

}  // namespace

TEST(PressureWindow, OpensOnTheDefault) {
  PressureWindow window(nullptr);
  EXPECT_EQ(labels(window, 1, 11),
            "Choose unit|Input value|Chart atmoshperic pressure setting|Inches of Hg|Inches of Hg|Pound/sq inch|"
            "Elevation in feet|29.92126|14.695949526166|||");
  EXPECT_EQ(text(window, "Text1"), "29.92126");
  EXPECT_FALSE(control<QWidget>(window, "Text1").isEnabled());
  EXPECT_EQ(control<ListBox>(window, "Combo1").currentText().toStdString(), "Default");
}

TEST(PressureWindow, WordsAndReadoutsFollowTheUnitAndTheTyping) {
  const struct {
    const char* name;
    int unit;
    const char* typed;  ///< none: the unit is chosen and nothing typed
    const char *entryunit, *hint, *readouts;
  } steps[] = {
      {"pounds", 2, "14.7", "Pounds/sq inch", "(2.9 - 72.5)", "29.9295087|14.7||"},
      {"elevation", 3, "5000", "Elevation in feet", "(0 - 38650)", "24.8961078291965|12.227825434352|5000|"},
      {"default again, the elevation stays", 0, nullptr, "Inches of Hg", "", "29.92126|14.695949526166|5000|"},
      {"typed unit", typedunit, "31", "Inches of Hg", "", "29.92126|14.695949526166|5000|"},
  };
  PressureWindow window(nullptr);
  for (const auto& step : steps) {
    SCOPED_TRACE(step.name);
    choose(window, step.unit);
    if (step.typed != nullptr) type(window, "Text1", step.typed);
    EXPECT_EQ(text(window, "Label4"), step.entryunit);
    EXPECT_EQ(text(window, "Label11"), step.hint);
    EXPECT_EQ(labels(window, 8, 10), step.readouts);
  }
}

TEST(PressureWindow, SettingWritesTheStoreEvenWhereItRefuses) {
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
      {"above the atmosphere", 3, "1e300", nullptr, false},
      {"typed unit", typedunit, nullptr, nullptr, true},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    PressureWindow window(nullptr);
    choose(window, row.unit);
    if (row.entry != nullptr) type(window, "Text1", row.entry);
    std::vector<std::string> written;
    QObject::connect(&window, &PressureWindow::pressurewritten, &window,
                     [&](const std::string& inhg) { written.push_back(inhg); });
    std::vector<PressureEntry> set;
    QObject::connect(&window, &PressureWindow::pressureset, &window,
                     [&](const PressureEntry& entry) { set.push_back(entry); });
    const BoxAnswers boxes(QMessageBox::Yes);
    click(window, "Command1");
    EXPECT_EQ(written, row.written == nullptr ? std::vector<std::string>{} : std::vector<std::string>{row.written});
    EXPECT_EQ(boxes.count(), row.set ? 1U : 2U);
    const PressureEntry expected{pressureunitat(row.unit), text(window, "Text1")};
    EXPECT_EQ(set, row.set ? std::vector{expected} : std::vector<PressureEntry>{});
  }
}

TEST(PressureWindow, AnEndlessEntryDoesNotWidenIt) {
  PressureWindow window(nullptr);
  window.show();
  choose(window, 3);
  const QSize before = window.minimumSizeHint();
  control<QLineEdit>(window, "Text1").setText(QString(10'000, u'9'));
  EXPECT_EQ(window.minimumSizeHint(), before);
  EXPECT_EQ(text(window, "Label10").size(), 10'000U);
}
