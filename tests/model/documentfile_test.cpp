#include "model/documentfile.h"

#include "desk.h"
#include "model/airhandler.h"

using namespace moistair;
using namespace moistair::test;

namespace {

/// A document with an entry of each kind, one that is not on the chart, and a title block.
std::string sample() {
  static const std::string text = [] {
    Desk desk;
    desk.commands.keepPicture();
    desk.draw();
    desk.rhLine("40");
    desk.point("75", "62.5", "A");
    desk.mix();
    desk.pin();
    desk.commands.change(airHandlerChange(desk.document(), {"OA: point A,scfm=2000", "# as typed"}, {}), window);
    Document document = desk.document();
    LeftOut& left = document.previous.emplace_back();
    left.entry.setting.limits = {50, 100, 0, 0.02};
    left.entry.setting.pressure = document.pressure;
    left.entry.content = PropertyLine{LineKind::wetBulb, "99"};
    left.reason = "too wet";
    document.titleBlock = TitleBlock{"Office", "Job 7", "A. B."};
    return fileText(document);
  }();
  return text;
}

std::string replaced(std::string text, std::string_view old, std::string_view with) {
  const std::size_t at = text.find(old);
  EXPECT_NE(at, std::string::npos) << old;
  return at == std::string::npos ? text : text.replace(at, old.size(), with);
}

/// A file that was changed at one place.
struct Damage {
  const char* name;
  std::string_view old, with;
  const char* fault;  ///< what the message begins with
};

constexpr std::string_view point = R"({"db":75,"wb":62.5,"rh":50.3032182,)";

const Damage damages[] = {
    {"a later format", "\"format\": 4", "\"format\": 5", "format: the file was written by a later version"},
    {"no format of ours", "\"format\": 4", "\"format\": 0.5", "format: must be from 1 to 4"},
    {"another file", "\"format\": 4", "\"form\": 2", "the document: \"format\" is missing"},
    {"a list in place of the whole", "{\n\"format\"", "[{\n\"format\"", "line 20"},
    {"a number too large for any double", point, R"({"db":1e999,"wb":62.5,"rh":50.3032182,)",
     "line 11, column 76: number overflow"},
    {"no number", point, R"({"db":NaN,"wb":62.5,"rh":50.3032182,)", "line 11, column 72: syntax error"},
    {"a number beyond its bound", point, R"({"db":1e300,"wb":62.5,"rh":50.3032182,)",
     "entry 4, state, db: must be above 0 and up to 120"},
    {"a wet bulb above the dry bulb", point, R"({"db":75,"wb":62.5,"rh":103,)", "entry 4, state, rh: must be"},
    {"a missing number", point, R"({"db":75,"rh":50.3032182,)", "entry 4, state: \"wb\" is missing"},
    {"a text for a number", point, R"({"db":"75","wb":62.5,"rh":50.3032182,)", "entry 4, state, db: must be a number"},
    {"a number for a text", R"("id":"A")", R"("id":7)", "entry 4, id: must be a text in quotes"},
    {"a key that stands twice", R"("id":"A")", R"("id":"A","id":"B")", "entries, 4, id: duplicate key"},
    {"a key that is not known", R"("id":"A")", R"("id":"A","color":"red")", "entry 4, color: this key is not known"},
    {"no UTF-8", R"("id":"A")", "\"id\":\"\xff\"", "line 11, column 23: syntax error"},
    {"a line break in a text", R"("id":"A")", "\"id\":\"\n\"", "line 11, column 23: syntax error"},
    {"a kind of entry from elsewhere", R"("kind":"line")", R"("kind":"curve")", "entry 3, kind: must be one of header"},
    {"another property line", R"("property":"rh")", R"("property":"dp")",
     "entry 3, property: must be one of rh, wb, h, v"},
    {"a pair that fixes no state", R"("given":{"db":"75","wb":"62.5"})", R"("given":{"w":"0.01","dp":"50"})",
     "entry 4, given: must be two properties that fix a state"},
    {"one property", R"("given":{"db":"75","wb":"62.5"})", R"("given":{"db":"75"})", "entry 4, given: must be two"},
    {"limits that no list offers", R"("limits":[0,120,0,0.03])", R"("limits":[0,125,0,0.03])",
     "entry 2: limits must be"},
    {"three limits", R"("limits":[0,120,0,0.03])", R"("limits":[0,120,0])",
     "entry 2, limits: must be a list of 4 numbers"},
    {"a point outside", R"("state":{"db":75,)", R"("limits":[80,120,0,0.03],"state":{"db":75,)",
     "entry 4: lies outside"},
    {"a limit that is no number", R"("drawn": [0,120,0,0.03])", R"("drawn": [0,120,"0",0.03])",
     "drawn, lowest humidity ratio: must be a number"},
    {"a step that is no text", R"("lines":["OA: point A,scfm=2000",)", R"("lines":[7,)",
     "entry 7, line 1: must be a text in quotes"},
    {"a pressure beyond its range", R"("unit":"standard","entry":"29.92126","inhg":29.92126)",
     R"("unit":"inhg","entry":"200","inhg":200)", "pressure, entry: must be within the range of its unit, (5.906"},
    {"a pressure that is not its entry's", R"("unit":"standard","entry":"29.92126","inhg":29.92126)",
     R"("unit":"elevation","entry":"5000","inhg":24)", "pressure, inhg: must be 24.8961078291965, the pressure of"},
    {"a NUL byte at the end", "\n]\n}\n", std::string_view("\n]\n}\n\0x", 7), "line 20, column 1: a NUL byte"},
    {"an unknown unit", R"("unit":"standard")", R"("unit":"bar")", "pressure, unit: must be one of standard, inhg"},
    {"more in the background than there is", R"("background": 1)", R"("background": 8)", "background: must be a whole"},
    {"a readout of no air", R"("readout","state":{"db":80,)", R"("readout","state":{"db":180,)",
     "entry 6, state, db: must be above 0"},
    {"a readout outside", R"("readout","state":{"db":80,)", R"("readout","limits":[90,120,0,0.03],"state":{"db":80,)",
     "entry 6: lies outside"},
    {"a chart that is not on the chart", R"({"kind":"line","property":"wb","value":"99","limits":[50,100,0,0.02]})",
     R"({"kind":"chart","type":"blank","limits":[50,100,0,0.02]})", "previous entry 1, entry, kind: must be one of"},
    {"no reason", R"("reason":"too wet")", R"("reason":1)", "previous entry 1, reason: must be a text"},
    {"half a title block", R"("project":"Job 7",)", "", "titleblock: \"project\" is missing"},
    {"half a mixture", R"("mixed":)", R"("mixt":)", "entry 5, mixt: this key is not known"},
    {"a read-out that is none", R"("db":"75.0000000")", R"("db":"warm")",
     "entry 5, stream 1, shown, db: must be a number"},
    {"a stream beyond all bounds", R"("rh":"50.3032182")", R"("rh":"0503.032182")",
     "entry 5, stream 1, shown, rh: must be"},
};

}  // namespace

TEST(DocumentFile, IsReadByAPerson) {
  Desk desk;
  desk.setPressure({PressureUnit::elevation, "5000"});
  desk.draw();
  desk.lookAtPressure();
  desk.rhLine("40 ");
  desk.point("75", "62.5", "A \"b\"\n\xc3\xa9");
  EXPECT_EQ(
      fileText(desk.document()),
      R"({
"format": 1,
"pressure": {"unit":"elevation","entry":"5000","inhg":24.8961078291965},
"drawn": [0,120,0,0.03],
"entries": [
{"kind":"chart","type":"blank","limits":[0,120,0,0.03]},
{"kind":"line","property":"rh","value":"40 ","pressure":{"unit":"elevation","entry":"5000","inhg":29.92126}},
{"kind":"point","id":"A \"b\"\n)"
      "\xc3\xa9"
      R"(","given":{"db":"75","wb":"62.5"},"state":{"db":75,"wb":62.5,"rh":50.3032182,"w":0.0092932,"h":28.1695563,"dp":55.2457239,"v":13.6751968,"pv":0.440482}}
]
}
)");
}

TEST(DocumentFile, DamageIsToldWithItsPlaceAndItsReason) {
  ASSERT_TRUE(readDocument(sample()));
  for (const Damage& damage : damages) {
    SCOPED_TRACE(damage.name);
    const auto read = readDocument(replaced(sample(), damage.old, damage.with));
    ASSERT_FALSE(read);
    EXPECT_EQ(read.error().text().substr(0, std::string_view(damage.fault).size()), damage.fault);
    EXPECT_LT(read.error().text().size(), 200U) << "it has to fit into a message";
  }
}

TEST(DocumentFile, KeepsALayerOfWeather) {
  Desk desk;
  desk.draw();
  Document document = desk.document();
  document.weather = WeatherLayer{.file = "/a b/\xfc.epw",
                                  .checksum = "0123",
                                  .site = "Ort",
                                  .show = WeatherShow::byHour,
                                  .filter = {0x7, 22, 6},
                                  .counts = true,
                                  .hours = 8.5,
                                  .size = {},
                                  .cells = {{-3, 4, 2.5}},
                                  .bins = {{60, 65, 8.5, noValue}},
                                  .design = {{DesignBasis::dewPoint, 0.4, 7, 80, Given{PropertyKind::dp, 70}, "2021"}},
                                  .columns = {{{"db", "OA T"}}, TableUnits::celsius}};
  const std::string text = fileText(document);
  const auto read = readDocument(text);
  ASSERT_TRUE(read) << read.error().text();
  EXPECT_EQ(read->document.weather, document.weather);
  EXPECT_EQ(fileText(read->document), text);
  const Damage damages[] = {{"half a cell", "[-3,4,2.5]", "[-3,4]", "weather, cell 1: "},
                            {"a cell far away", "[-3,4,2.5]", "[-3e9,4,2.5]", "weather, cell 1, number 1: "},
                            {"no way to show it", "\"show\":\"hours\"", "\"show\":\"hour\"", "weather, show"},
                            {"a wrong size", "\"cellsize\":[2,", "\"cellsize\":[0,", "weather, side 1: "}};
  for (const Damage& damage : damages) {
    const auto damaged = readDocument(replaced(text, damage.old, damage.with));
    ASSERT_FALSE(damaged) << damage.name;
    EXPECT_TRUE(damaged.error().text().starts_with(damage.fault)) << damaged.error().text();
  }
}

TEST(DocumentFile, RubbishIsNoDocument) {
  const std::string deep(100000, '['), longKey = "{\"format\":1,\"" + std::string(100000, 'k') + "\":1,\"pressure\":1}";
  for (const std::string& text : {std::string(), std::string("\0\0", 2), std::string("null"), std::string("[]"), deep,
                                  longKey, std::string("{\"format\":1}"), sample() + "x"}) {
    const auto read = readDocument(text);
    ASSERT_FALSE(read);
    EXPECT_FALSE(read.error().text().empty());
    EXPECT_LT(read.error().text().size(), 200U);
  }
  for (std::size_t size = 0; size + 1 < sample().size(); ++size) {
    EXPECT_FALSE(readDocument(sample().substr(0, size))) << "cut off at " << size;
  }
}

TEST(DocumentFile, APointTooDryForSevenDecimalsIsReadAgain) {
  Desk desk;
  desk.draw();
  StatePoint shown;
  shown.db = 1e-7;
  shown.rh = 1e-7;
  const PairInput input{PropertyKind::db, PropertyKind::rh, ".0000001", ".0000001"};
  ASSERT_TRUE(desk.commands.markPoint(input, shown, desk.lists, "", window));
  EXPECT_TRUE(readDocument(fileText(desk.document())));
}

TEST(DocumentFile, WhatThePressureWindowLeavesBehindIsReadAgain) {
  const struct {
    const char* name;
    PressureEntry set;    ///< and accepted
    const char* refused;  ///< current afterward, empty for none
  } rows[] = {
      {"read leniently", {PressureUnit::inhg, "30abc"}, ""},
      {"a bound", {PressureUnit::elevation, "38650"}, ""},
      {"no unit", {std::nullopt, "bar"}, ""},
      {"a refused value", {PressureUnit::psi, "14"}, "200"},
      {"a refused one that is no number", {PressureUnit::psi, "14"}, "-5 abc"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    Desk desk;
    desk.setPressure(row.set);
    if (*row.refused != '\0') desk.commands.setCurrentPressure(row.refused);
    desk.draw();
    desk.lookAtPressure();
    desk.rhLine("40");
    const auto read = readDocument(fileText(desk.document()));
    ASSERT_TRUE(read) << read.error().text();
    EXPECT_EQ(fileText(read->document), fileText(desk.document()));
  }
}

TEST(DocumentFile, UnsavedWorkKnowsWhereItBelongs) {
  const Document document = readDocument(sample())->document;
  for (const std::string path : {"", "/home/a/b \"c\".moistair", "/home/\xff\x01.moistair"}) {
    const auto read = readDocument(recoveryText(document, path));
    ASSERT_TRUE(read) << read.error().text();
    EXPECT_EQ(read->file, path);
    EXPECT_EQ(fileText(read->document), sample());
  }
}
