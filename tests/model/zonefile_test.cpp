#include "desk.h"
#include "model/documentfile.h"
#include "model/envelopefile.h"

using namespace moistair;
using namespace moistair::test;

namespace {

ZoneLayer sampleLayer() {
  Occupant person{ComfortMethod::iso, 1.2, 0.7, 40, true, 71.5};
  Envelope envelope{"Own", "An \"own\" one", {{PropertyKind::db, 60, 80}, {PropertyKind::h, -unbounded, 25.5}}, {}};
  envelope.derating = Derating{5000, 1.5};
  return {{ComfortZone{person, 0.7, 60}, ComfortZone{}, AdaptiveZone{65, 90, 70, 50}, envelope}, false};
}

}  // namespace

TEST(ZoneFile, DocumentHoldsItsZonesAsTheyWereAndUndoesThem) {
  Desk desk;
  desk.draw();
  const std::string before = fileText(desk.document());
  desk.commands.rezone(sampleLayer());
  const std::string text = fileText(desk.document());
  EXPECT_NE(text.find("\"format\": 4"), std::string::npos);
  const auto read = readDocument(text);
  ASSERT_TRUE(read) << read.error().text();
  EXPECT_EQ(read->document.zoneLayer, sampleLayer());
  EXPECT_EQ(fileText(read->document), text);
  EXPECT_EQ(desk.commands.history().undoName(), "Comfort and envelopes");
  desk.commands.undo(window);
  EXPECT_EQ(fileText(desk.document()), before);
  desk.commands.redo(window);
  EXPECT_EQ(fileText(desk.document()), text);
}

TEST(ZoneFile, RefusesZonesThatAreNone) {
  Desk desk;
  desk.commands.rezone(sampleLayer());
  const std::string text = fileText(desk.document());
  const struct {
    const char *old, *with, *fault;
  } rows[] = {
      {R"("kind":"adaptive")", R"("kind":"cozy")", "zones, zone 3, kind: must be one of comfort, adaptive, envelope"},
      {R"("method":"iso")", R"("method":"fanger")", "method: must be ashrae or iso"},
      {R"("met":1.2)", R"("met":12)", "met: must be from 0.8 to 4 for ISO 7730"},
      {R"("accepting":90)", R"("accepting":85)", "acceptance: must be 80 or 90 percent"},
      {R"("db":[60,80])", R"("db":[80,60])", "db: the lowest value must not be above the highest"},
      {R"("db":[60,80])", R"("db":[60])", "limits, db: must be the lowest and the highest value"},
      {R"("db":[60,80])", R"("dbb":[60,80])", "limits, dbb: this key is no property"},
      {R"("above":5000,)", "", "derating: \"above\" is missing"},
  };
  for (const auto& [old, with, fault] : rows) {
    std::string damaged = text;
    damaged.replace(damaged.find(old), std::string_view(old).size(), with);
    const auto read = readDocument(damaged);
    ASSERT_FALSE(read) << fault;
    EXPECT_NE(read.error().text().find(fault), std::string::npos) << read.error().text();
  }
  EXPECT_EQ(readEnvelope("{}").error().text(), "the document: \"format\" is missing");
}

TEST(ZoneFile, InstalledEnvelopesAreThoseOfTheTrade) {
  const std::filesystem::path folder = MOISTAIR_ENVELOPES;
  using enum PropertyKind;
  const auto fahrenheit = [](double celsius) { return 1.8 * celsius + 32; };
  const struct {
    const char* name;
    double low, high, rhLow, rhHigh, dpLow, dpHigh, metersToDegree;
  } rows[] = {
      {"recommended", 18, 27, -unbounded, 70, -9, 15, 0},
      {"recommended-50", 18, 27, -unbounded, 50, -9, 15, 0},
      {"A1", 15, 32, 8, 80, -12, 17, 300},
      {"a2", 10, 35, 8, 80, -12, 21, 300},
      {"A3", 5, 40, 8, 85, -12, 24, 175},
      {"A4", 5, 45, 8, 90, -12, 24, 125},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const auto envelope = envelopeOf(row.name, folder);
    ASSERT_TRUE(envelope) << envelope.error().text();
    const std::vector<PropertyLimits> expected = {{db, fahrenheit(row.low), fahrenheit(row.high)},
                                                  {rh, row.rhLow, row.rhHigh},
                                                  {dp, fahrenheit(row.dpLow), fahrenheit(row.dpHigh)}};
    for (const PropertyLimits& limits : expected) {
      const auto same = [&](const PropertyLimits& at) { return at.kind == limits.kind; };
      const auto found = std::find_if(envelope->limits.begin(), envelope->limits.end(), same);
      ASSERT_NE(found, envelope->limits.end());
      EXPECT_NEAR(std::max(found->low, -1e9), std::max(limits.low, -1e9), 1e-9);
      EXPECT_NEAR(found->high, limits.high, 1e-9);
    }
    const double feet = 6000;
    const double fallen = row.metersToDegree > 0 ? 1.8 * (feet * 0.3048 - 900) / row.metersToDegree : 0;
    EXPECT_NEAR(dryBulbsOf(*envelope, psychro_atm(feet)).high, fahrenheit(row.high) - fallen, 1e-4);
    EXPECT_EQ(dryBulbsOf(*envelope, psychro_atm(2900)).high, dryBulbsOf(*envelope, defaultPressure).high);
  }
  EXPECT_EQ(envelopeNames(folder).size(), std::size(rows));
  EXPECT_EQ(envelopeOf("B", folder).error().code, ErrorCode::unknownName);
}
