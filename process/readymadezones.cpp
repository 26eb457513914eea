// Lines of the systems without an air handler for one room: evaporative coolers, zones with their own flows, a room
// alone.
#include <algorithm>
#include <bit>
#include <string_view>

#include "process/readymadelines.h"

namespace moistair {

namespace {

using enum Parameter;

constexpr ParameterSet coolerKeys = setOf(eff, db, rh);

/// These systems hold what was asked for, or run with the flows that were sized.
Outcome holdsAllOrNothing(const LineRequest& request) {
  if (request.way.held == Held::all || request.way.held == Held::nothing) return {};
  return Error{ErrorCode::unsupported, "", "there is nothing between"};
}

}  // namespace

Result<std::string> writeEvaporative(const LineRequest& request) {
  const ReadymadeKeys& keys = request.keys;
  LineWriter lines(request);
  if (const Outcome outcome = holdsAllOrNothing(request); !outcome) return outcome.error();
  if (keys.given("outdoor", stateKeys) == 0)
    return Error{ErrorCode::noResult, "outdoor", "give two properties of the outdoor air, such as db and wb"};
  const std::string stages = keys.word("stages");
  const bool indirect = stages.empty() ? keys.hasAny("indirect") : stages != "direct";
  const bool direct = stages.empty() ? keys.hasAny("direct") : stages != "indirect";
  if (!indirect && !direct)
    return Error{ErrorCode::noResult, "", "give direct.eff or indirect.eff, or stages=direct, indirect or both"};
  for (const char* group : {"direct", "indirect"}) {
    if (std::popcount(keys.given(group, coolerKeys)) > 1)
      return Error{ErrorCode::duplicate, group, "give one of eff, db or rh"};
  }
  const std::string idle = request.hours ? "idle=pass" : "";
  const auto cooler = [&](const char* group) {
    const std::string given = keys.typed(group, coolerKeys);
    return given.empty() ? lines.open(group, eff) : given;
  };
  std::string flow = keys.typed("outdoor", flowKeys);
  if (flow.empty() && request.way.held == Held::nothing)
    flow = assigned(lbh, request.sized->value("RM", lbh, request.site));
  if (flow.empty()) {
    flow = "lbh=?";
    lines.unknown("outdoor.lbh");
  }
  const std::string outdoor = keys.typed("outdoor", stateKeys);
  lines.step("OA", "air", joined(outdoor, flow));
  if (indirect) {
    const bool roomAir = keys.word("indirect.from") == "room";
    if (!roomAir) lines.step("WS", "air", outdoor + "  # on the wet side of IC");
    lines.setAir("OA");
    const std::string side = roomAir ? "indirect=RM" : "indirect=WS";
    lines.onward("IC", "evaporate", joined(cooler("indirect"), joined(side, idle)));
  }
  if (direct) lines.onward("DC", "evaporate", joined(cooler("direct"), idle));
  lines.fan("SA", "after");
  const std::string supply = lines.air();
  lines.onward("RM", "room", keys.typed("room", loadKeys));
  if (request.way.held == Held::all) {
    lines.goalsOf("RM", "room", stateKeys);
    if (const Outcome outcome = lines.supplyGoals(supply, true); !outcome) return outcome.error();
  } else if (lines.unknownCount() > 0) {
    return Error{ErrorCode::noResult, "", "an effectiveness is open"};
  }
  return lines.finish();
}

namespace {

/// What a zone's flow is not to fall below, as the parameter of a flow; empty for none.
std::string smallestFlow(const LineRequest& request, const std::string& zone) {
  const std::string given = request.keys.typed(zone + ".min", flowKeys);
  if (!given.empty()) return given;
  const double share = request.keys.number(zone + ".min.share");
  if (!hasValue(share) || request.sized == nullptr) return {};
  return assigned(lbh, share * request.sized->value(zone, lbh, request.site));
}

class Zones {
public:
  explicit Zones(const LineRequest& request) : request_(request), keys_(request.keys), lines_(request) {}

  Result<std::string> write() {
    if (const Outcome outcome = holdsAllOrNothing(request_); !outcome) return outcome.error();
    if (keys_.zones().empty()) return Error{ErrorCode::noResult, "zones", "name the zones, such as zones=East,West"};
    for (const std::string& zone : keys_.zones()) {
      if (!keys_.has(zone + ".db")) return Error{ErrorCode::noResult, zone + ".db", "is needed"};
      if (std::popcount(keys_.given(zone + ".min", flowKeys | setOf(share))) > 1)
        return Error{ErrorCode::duplicate, zone + ".min", "give one of acfm, scfm, lbh or share"};
    }
    const ParameterSet pair = keys_.given("coil", coilPair);
    if (std::popcount(pair) >= 2) {
      if (const Outcome outcome = checkGiven(StepKind::coil, pair); !outcome) return outcome.error().within("coil");
    }
    if (keys_.has("supply.dt"))
      return Error{ErrorCode::noResult, "supply.dt", "has no single room to refer to; give supply.db"};
    writeReturn();
    lines_.fan("SF", "before");
    const bool off = request_.way.held == Held::nothing;
    std::vector<Parameter> open;
    std::string coil = lines_.coilText(open);
    for (const Parameter parameter : open) {
      if (!off) coil = joined(coil, lines_.open("coil", parameter));
    }
    const std::string idle = request_.hours ? "idle=pass" : "";
    lines_.onward("CC", "coil",
                  joined(off ? coilOff : coil, joined(keys_.typed("coil", coilOptions), off ? "" : idle)));
    lines_.fan("SA", "after");
    const std::string supply = lines_.air();
    if (!off) {
      if (const Outcome outcome = lines_.supplyGoals(supply, true); !outcome) return outcome.error();
    }
    for (std::size_t i = 0; i < keys_.zones().size(); ++i) writeZone(i);
    return lines_.finish();
  }

private:
  void writeReturn() {
    const bool outdoor = keys_.given("outdoor", stateKeys) != 0 && keys_.number("outdoor.share") != 0;
    const bool returns = !outdoor || keys_.number("outdoor.share") != 1;
    if (outdoor) {
      std::string flow = keys_.typed("outdoor", flowKeys);
      if (flow.empty()) flow = "lbh=?";
      lines_.step("OA", "air", joined(keys_.typed("outdoor", stateKeys), flow));
      // Together the zones' flows are the supply air, and the outdoor air is a part of it.
      if (returns && keys_.given("outdoor", flowKeys | setOf(share)) == 0) lines_.unknown("outdoor.lbh");
    }
    if (!returns) return;
    std::string all;
    for (const std::string& zone : keys_.zones()) all += " " + zone;
    lines_.step("RM", "mix" + all, "");
    const std::string gain = keys_.typed("return", setOf(dt, btuh));
    if (!gain.empty()) lines_.onward("RA", "heat", gain);
    if (!outdoor) return;
    const double outdoorShare = keys_.number("outdoor.share");
    lines_.onward("RT", "part", hasValue(outdoorShare) ? assigned(share, 1 - outdoorShare) : "lbh=?");
    lines_.step("MA", "mix OA RT", "");
  }

  /// A zone takes its part of the air that is left; the last one takes all of it.
  void writeZone(std::size_t i) {
    const std::string& zone = keys_.zones()[i];
    const bool last = i + 1 == keys_.zones().size();
    const std::string rest = lines_.air();
    const std::string box = "box-" + zone;
    const bool off = request_.way.held == Held::nothing;
    const bool minimum = !off && i < request_.way.atMinimum.size() && request_.way.atMinimum[i];
    std::string flow;
    if (off) flow = assigned(lbh, request_.sized->value(zone, lbh, request_.site));
    if (minimum) flow = smallestFlow(request_, zone);
    const bool fixed = !flow.empty();
    if (last) {
      lines_.step(box, "mix " + rest, "");
      if (fixed) lines_.goal(box, flow, zone + ".min");
    } else {
      lines_.step(box, "part " + rest, fixed ? flow : "lbh=?");
    }
    if (last || !fixed) lines_.unknown("the flow of " + zone);
    const std::string heater = "heat-" + zone;
    if (minimum) {
      lines_.onward(heater, "heat", joined(lines_.open(heater, dt), request_.hours ? "idle=pass" : ""));
    } else if (request_.hours) {
      lines_.onward(heater, "heat", heaterOff);
    }
    const bool part = request_.partLoad && keys_.hasAny(zone + ".part");
    lines_.onward(zone, "room", keys_.typed(part ? zone + ".part" : zone, loadKeys));
    if (!off) lines_.goalsOf(zone, zone, setOf(db));
    lines_.setAir(box + ".rest");
  }

  const LineRequest& request_;
  const ReadymadeKeys& keys_;
  LineWriter lines_;
};

}  // namespace

Result<std::string> writeZones(const LineRequest& request) { return Zones(request).write(); }

Result<std::string> writeRoom(const LineRequest& request) {
  const ReadymadeKeys& keys = request.keys;
  LineWriter lines(request);
  if (request.way.held != Held::all) return Error{ErrorCode::unsupported, "", "a room alone has no equipment"};
  const ParameterSet given = keys.given("supply", stateKeys);
  std::string air = keys.typed("supply", stateKeys);
  if (std::popcount(given) == 0) air = joined(lines.open("supply", db), lines.open("supply", rh));
  if (std::popcount(given) == 1) air = joined(air, lines.open("supply", given == bitOf(db) ? rh : db));
  if (std::popcount(given) > 2)
    return Error{ErrorCode::noResult, "supply", "two properties fix its state; leave out the others"};
  std::string flow = keys.typed("supply", flowKeys);
  if (flow.empty()) {
    flow = "lbh=?";
    lines.unknown("supply.lbh");
  }
  lines.step("SA", "air", joined(air, flow));
  lines.onward("RM", "room", keys.typed("room", loadKeys));
  lines.goalsOf("RM", "room", stateKeys);
  return lines.finish();
}

}  // namespace moistair
