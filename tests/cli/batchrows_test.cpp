#include "cli/batchrows.h"

#include <gtest/gtest.h>

#include "cli/fault.h"
#include "engine/openfinders.h"

using namespace moistair;

namespace {

/// A table of one header, resolved row by row.
class Table {
public:
  explicit Table(std::string header, bool exact = false, bool strict = false) : header_(std::move(header)) {
    std::string_view rest = header_;
    takeRecord(rest, record_);
    plan_ = {.columns = columnsOf(record_, "t.csv"), .finders = &openRangeFinders(), .exact = exact, .strict = strict};
  }

  BatchResult rows(const std::string& text) const { return resolveRows(text, plan_); }
  std::string names() const { return headerLine(record_, plan_); }

private:
  std::string header_;
  CsvRecord record_;
  BatchPlan plan_;
};

constexpr const char* reference =
    ",75.0000000,62.5000000,50.3032182,0.0092932,28.1695563,55.2457239,13.6751968,0.4404820,ok\n";

const std::string emptyState(8, ',');

}  // namespace

TEST(BatchRows, RowsGoThroughAndGetTheirState) {
  const struct {
    const char* name;
    const char* header;
    std::string row;
    std::string before;  ///< what precedes the state
    std::string behind;  ///< the state and its status
  } rows[] = {
      {"no line end", "db,wb", "75,62.5", "75,62.5", reference},
      {"other columns with quotes stay as they are", "id,db,note,wb", "7,75,\"a, \"\"b\"\"\r\nc\",62.5\n",
       "7,75,\"a, \"\"b\"\"\r\nc\",62.5", reference},
      {"values in quotes and blanks", "db,wb", "\" 75\",\t62.5 \n", "\" 75\",\t62.5 ", reference},
      {"blank lines are left out", "db,wb", "\n75,62.5\n\r\n", "75,62.5", reference},
      {"kinds in capitals", "DB,Wb", "75,62.5\n", "75,62.5", reference},
      {"pair by what is filled", "rh,db,wb,w", ",75,62.5,\n", ",75,62.5,", reference},
      {"elevation of its own", "db,wb,elevation", "75,62.5,5000\n", "75,62.5,5000",
       ",75.0000000,62.5000000,52.8341213,0.0117771,30.8876764,56.5992672,16.5000448,0.4626439,ok\n"},
      {"no pressure of its own", "db,wb,inhg,psi", "75,62.5,,\n", "75,62.5,,", reference},
      {"two pressures", "db,wb,inhg,psi", "75,62.5,29,14\n", "75,62.5,29,14",
       emptyState + ",the pressure is given twice\n"},
      {"pressure that is no number", "db,wb,inhg", "75,62.5,30abc\n", "75,62.5,30abc",
       emptyState + ",inhg is no number\n"},
      {"value that is no number", "db,dp", "75,x\n", "75,x", emptyState + ",dp is no number\n"},
      {"one value", "db,wb", "75,\n", "75,",
       emptyState + ",1 of db wb rh w h dp v are filled where a state takes two\n"},
      {"w with dp", "dp,w", "50,0.01\n", "50,0.01", emptyState + ",w and dp say the same thing and fix no state\n"},
      {"above saturation", "db,wb", "75,80\n", "75,80", emptyState + ",no such state: rh would be above 100\n"},
      {"dew point of -1", "db,dp", "75,-1\n", "75,-1",
       ",75.0000000,47.1848667,4.0763831,0.0007429,18.8129404,-1.0000000,13.4902292,0.0356950,ok\n"},
      {"fields missing", "db,wb,note,more", "75,62.5\n", "75,62.5,,",
       emptyState + ",2 fields where there are 4 columns\n"},
      {"fields too many", "db,wb", "75,62.5,\"x,\",y\n", "75,62.5",
       emptyState + ",4 fields where there are 2 columns\n"},
      {"quote left open", "db,wb,note", "75,62.5,\"x\n", "75,62.5,\"x\n\"", emptyState + ",a quote was left open\n"},
      {"zero bytes", "db,wb", std::string("7\0,\0\n", 5), std::string("7\0,\0", 4), emptyState + ",db is no number\n"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const BatchResult result = Table(row.header).rows(row.row);
    EXPECT_EQ(result.text, row.before + row.behind);
    EXPECT_EQ(result.rows, 1U);
    EXPECT_EQ(result.failed, row.behind.ends_with(",ok\n") ? 0U : 1U);
  }
}

TEST(BatchRows, AStateThatMissesAGivenValueIsMarkedMadeExactOrRefused) {
  const std::string header = "db,rh,w,h,dp,v";
  const std::string missed = "1.04,51,,,,\n", noState = "100,,,,,13\n", wrong = ",,,13.68,27.65,\n";
  const std::string notFound = "33,90,,,,\n", two = "40,,0.00205,,,\n", notChosen = ",,0.00205,11.8,,\n";
  const struct {
    const char* name;
    std::string row;
    bool exact, strict;
    const char* db;  ///< of the state; empty if the row fails
    const char* status;
    bool marked;
  } rows[] = {
      {"a given value missed", missed, false, false, "1.0400000", "missed", true},
      {"the same as an error", missed, false, true, "", "missed", true},
      {"a volume that no air has", noState, false, false, "100.0000000", "missed", true},
      {"no exact state in its place", noState, true, false, "",
       "no state has both values: humidity ratio would not be above 0", false},
      {"a dew point missed", wrong, false, false, "42.4687500", "missed", true},
      {"the exact one", wrong, true, true, "43.1289323", "ok", false},
      {"not found by the search", notFound, false, false, "", "\"the search found no state; exact: dry bulb 33.00",
       false},
      {"exact all the same", notFound, true, false, "33.0000000", "ok", false},
      {"the nearest of two", two, true, false, "40.0000000", "nearest", false},
      {"a state that misses nothing", "75,50,,,,\n", false, true, "75.0000000", "ok", false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const BatchResult result = Table(header, row.exact, row.strict).rows(row.row);
    const std::string behind = result.text.substr(row.row.size() - 1);
    EXPECT_EQ(behind.substr(1, behind.find(',', 1) - 1), row.db) << result.text;
    EXPECT_NE(behind.find(std::string(",") + row.status), std::string::npos) << result.text;
    EXPECT_EQ(result.missed, row.marked ? 1U : 0U);
    EXPECT_EQ(result.failed, *row.db == 0 ? 1U : 0U);
    EXPECT_EQ(result.nearest, std::string(row.status) == "nearest" ? 1U : 0U);
  }
}

/// No range of dry bulbs is found for the second row; on the range that the first one has found, the search would go on
/// to a state.
TEST(BatchRows, NothingIsLeftByAnEarlierRow) {
  const BatchResult result = Table("w,v").rows("0.025,15.08\n0.0299,15.306753\n");
  EXPECT_EQ(result.rows, 2U);
  EXPECT_EQ(result.failed, 1U);
  EXPECT_TRUE(result.text.ends_with("0.0299,15.306753" + emptyState +
                                    ",\"the search found no state; exact: dry bulb 119.90, wet bulb 94.35\"\n"))
      << result.text;
}

TEST(BatchRows, TheFirstLineNamesTheColumns) {
  EXPECT_EQ(Table("id,db,\"w\"").names(), "id,db,\"w\",out_db,out_wb,out_rh,out_w,out_h,out_dp,out_v,out_pv,status\n");
  const struct {
    const char* name;
    std::string header;
    const char* reason;
  } rows[] = {
      {"values at once", "75,62.5", "must name the columns"},
      {"a kind twice", "db,wb,DB", "the column DB twice"},
      {"quote left open", "db,\"wb", "leaves a quote open"},
      {"binary", std::string("\x01\0,db,wb", 8), "zero bytes"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    try {
      Table table(row.header);
      FAIL() << "no fault";
    } catch (const Fault& fault) {
      EXPECT_EQ(fault.code(), ExitCode::badUsage);
      EXPECT_NE(std::string(fault.what()).find(row.reason), std::string::npos) << fault.what();
    }
  }
}
