// Lines of the systems with one air handler and one room: mixed or all outdoor air through a coil or a humidifier.
#include <bit>
#include <string_view>

#include "process/readymadelines.h"

namespace moistair {

namespace {

using enum Parameter;

class Handler {
public:
  explicit Handler(const LineRequest& request)
      : request_(request), keys_(request.keys), held_(request.way.held), lines_(request) {
    const std::string_view name = keys_.system().name;
    recovers_ = name == "recovery";
    bypasses_ = name == "bypass";
    heats_ = name == "winter";
    reheats_ = name == "reheat";
    outdoor_ = keys_.given("outdoor", stateKeys) != 0 && keys_.number("outdoor.share") != 0;
    returns_ = !recovers_ && (!outdoor_ || keys_.number("outdoor.share") != 1);
  }

  Result<std::string> write() {
    if (recovers_ && !outdoor_)
      return Error{ErrorCode::noResult, "outdoor", "give two properties of the outdoor air, such as db and rh"};
    if (sizedFlow() && request_.sized == nullptr) return Error{ErrorCode::unsupported, "", "nothing was sized"};
    if (request_.partLoad && held_ == Held::temperature)
      return Error{ErrorCode::unsupported, "", "at part load only the temperature is held"};
    if (bypasses_ && !returns_)
      return Error{ErrorCode::noResult, "outdoor.share", "of 1 leaves no room air to bypass the coil"};
    if (const Outcome outcome = checkCoil(); !outcome) return outcome.error();
    decide();
    writeReturn();
    writeOutdoor();
    mixOrTake();
    lines_.fan("SF", "before");
    if (heats_) {
      humidify();
    } else {
      cool();
    }
    return finishRoom();
  }

private:
  bool asked() const { return held_ == Held::all; }
  /// With the flow that was sized, at part load or with less held than asked for.
  bool sizedFlow() const { return request_.partLoad || held_ >= Held::dryBulb; }

  Outcome checkCoil() const {
    const ParameterSet given = keys_.given("coil", coilPair);
    if (std::popcount(given) < 2) return {};
    const Outcome outcome = checkGiven(StepKind::coil, given);
    return outcome ? outcome : Outcome(outcome.error().within("coil"));
  }

  /// The unknowns and goals without reheat: one goal more than unknowns asks for it.
  void decide() {
    const bool givenFlow = keys_.given("outdoor", flowKeys) != 0;
    const bool share = keys_.has("outdoor.share");
    const bool returnFlow = keys_.given("return", flowKeys) != 0;
    if (outdoor_ && returns_) {
      openFlows_ = 2 - (givenFlow || share ? 1 : 0) - (returnFlow ? 1 : 0);
    } else {
      openFlows_ = givenFlow || (returnFlow && returns_) ? 0 : 1;
    }
    const int coil = 2 - std::popcount(keys_.given("coil", coilPair));
    const bool bypassOpen = bypasses_ && keys_.given("bypass", flowKeys | setOf(share_)) == 0;
    const int unknowns = openFlows_ + coil + (bypassOpen ? 1 : 0);
    const int goals = std::popcount(keys_.given("room", stateKeys)) +
                      std::popcount(keys_.given("supply", stateKeys | flowKeys | setOf(dt)));
    const bool given = keys_.hasAny("reheat");
    const bool byCount = goals == unknowns + 1 && !bypasses_;
    const bool forced = reheats_ && (request_.partLoad || !keys_.hasAny("part"));
    reheat_ = heats_ || given || forced || byCount;
    reheatOpen_ = reheat_ && !given;
  }

  void writeReturn() {
    back_ = "RM";
    const std::string gain = keys_.typed("return", setOf(dt, btuh));
    if (gain.empty()) return;
    backSteps_.push_back({"RA", "heat RM", gain});
    back_ = "RA";
  }

  void writeOutdoor() {
    if (outdoor_) {
      std::string flow = keys_.typed("outdoor", flowKeys);
      if (flow.empty()) {
        flow = "lbh=?";
        lines_.unknown("the outdoor flow");
      }
      lines_.step("OA", "air", joined(keys_.typed("outdoor", stateKeys), flow));
    }
    for (const auto& [name, source, parameters] : backSteps_) lines_.step(name, source, parameters);
    if (outdoor_) lines_.setAir("OA");
    if (recovers_) {
      std::string exchange = keys_.typed("recovery", setOf(sens, lat));
      if (exchange.empty()) exchange = lines_.open("recovery", sens);
      lines_.step("ER", "recover OA " + back_, exchange);
    }
    if (heats_ && keys_.word("preheat.place") != "mixed" && outdoor_) preheat();
  }

  /// Where return air comes in, and what of it goes around the coil.
  void mixOrTake() {
    if (!returns_) return;
    const std::string outdoor = lines_.air();
    std::string back = back_;
    if (outdoor_) {
      lines_.step("RT", "part " + back_, returnFlow());
      back = "RT";
    } else if (keys_.given("return", flowKeys) != 0) {
      lines_.goalsOf(back_, "return", flowKeys);
      lines_.unknown("the flow");
    } else {
      lines_.unknown("the flow");
    }
    if (bypasses_) {
      std::string flow = held_ < Held::dryBulb ? keys_.typed("bypass", flowKeys | setOf(share_)) : "share=0";
      if (flow.empty()) {
        flow = "lbh=?";
        lines_.unknown("bypass.lbh");
      }
      lines_.step("BY", "part " + back, flow);
      back = "BY.rest";
    }
    if (outdoor_) {
      lines_.step("MA", "mix " + outdoor + " " + back, "");
    } else {
      lines_.setAir(back);
    }
    if (heats_ && (keys_.word("preheat.place") == "mixed" || !outdoor_)) preheat();
  }

  std::string returnFlow() {
    const std::string given = keys_.typed("return", flowKeys);
    if (keys_.has("outdoor.share")) {
      if (!given.empty()) lines_.goalsOf("RT", "return", flowKeys);
      return assigned(share_, 1 - keys_.number("outdoor.share"));
    }
    if (!given.empty()) return given;
    lines_.unknown("the return flow");
    return "lbh=?";
  }

  void cool() {
    const std::string options = keys_.typed("coil", coilOptions);
    lines_.onward("CC", "coil",
                  joined(coil(), joined(options, request_.hours && held_ != Held::nothing ? "idle=pass" : "")));
    if (bypasses_) {
      const bool fanAfter = keys_.given("fan", fanKeys) != 0 && keys_.word("fan.place") != "before";
      lines_.step(fanAfter ? "SM" : "SA", "mix CC BY", "");
    }
    if (reheat_) reheat();
  }

  double sizedCoil(Parameter parameter) const { return request_.sized->value("CC", parameter, request_.site); }

  std::string coil() {
    if (held_ == Held::nothing) return coilOff;
    std::vector<Parameter> open;
    std::string text = lines_.coilText(open);
    if (request_.partLoad && asked() && (reheatOpen_ || bypasses_))
      return joined(assigned(db, sizedCoil(db)), assigned(w, sizedCoil(w)));
    if (sizedFlow()) return joined(modulated(), lines_.open("coil", db));
    // What is no longer asked for is left as it was sized, the humidity first.
    int surplus = held_ == Held::temperature && !reheatOpen_ ? 1 : 0;
    for (; surplus > 0 && !open.empty() && request_.sized != nullptr; --surplus) {
      text = joined(text, assigned(open.back(), sizedCoil(open.back())));
      open.pop_back();
    }
    for (const Parameter parameter : open) text = joined(text, lines_.open("coil", parameter));
    return text;
  }

  /// What stays the same of a coil whose leaving temperature is changed.
  std::string modulated() const {
    if (keys_.has("coil.bf")) return keys_.typed("coil", setOf(bf));
    if (keys_.has("coil.rh")) return keys_.typed("coil", setOf(rh));
    const double factor = sizedCoil(bf);
    return hasValue(factor) && factor < 1 ? assigned(bf, factor) : assigned(rh, sizedCoil(rh));
  }

  void reheat() {
    const std::string idle = request_.hours ? "idle=pass" : "";
    const std::string given = keys_.typed("reheat", setOf(db, dt, btuh));
    const bool off = held_ == Held::nothing || (held_ != Held::all && !heats_ && given.empty());
    const char* name = heats_ && !preheats_ && steams() ? "HC" : "RH";
    if (off && !request_.hours) return;
    if (off) return lines_.onward(name, "heat", heaterOff);
    const bool fixed = !given.empty();
    lines_.onward(name, "heat", joined(fixed ? given : lines_.open("reheat", dt), idle));
  }

  bool washes() const {
    const std::string word = keys_.word("humidifier");
    return word == "washer" || (word.empty() && keys_.hasAny("washer"));
  }
  bool steams() const {
    const std::string word = keys_.word("humidifier");
    if (word == "steam") return true;
    return word.empty() && !washes() && (keys_.hasAny("steam") || std::popcount(keys_.given("room", stateKeys)) == 2);
  }

  void preheat() {
    const std::string idle = request_.hours ? "idle=pass" : "";
    const std::string given = keys_.typed("preheat", setOf(db, rh, dt, btuh));
    preheats_ = !given.empty();
    if (preheats_) return lines_.onward("PH", "heat", joined(given, idle));
    // A washer that is given makes as much moisture as the air before it is warm.
    const bool open = washes() && keys_.given("washer", setOf(eff, db, rh)) != 0 &&
                      std::popcount(keys_.given("room", stateKeys)) == 2;
    if (!open) return;
    if (asked()) return lines_.onward("PH", "heat", joined(lines_.open("preheat", dt), idle));
    lines_.onward("PH", "heat", heaterOff);
  }

  void humidify() {
    const std::string idle = request_.hours ? "idle=pass" : "";
    // Cold air holds no steam, so without a preheat coil the one heater comes before it.
    const bool heatsFirst = steams() && !preheats_;
    if (heatsFirst) reheat();
    if (washes()) {
      const std::string given = keys_.typed("washer", setOf(eff, db, rh));
      if (!asked()) {
        lines_.onward("HU", "evaporate", washerOff);
      } else {
        lines_.onward("HU", "evaporate", joined(given.empty() ? lines_.open("washer", eff) : given, idle));
      }
    } else if (steams()) {
      const std::string amount = keys_.typed("steam", setOf(rh, w, dp, water));
      const std::string source = keys_.typed("steam", setOf(psig, degf, hg));
      if (!asked()) {
        lines_.onward("HU", "steam", joined(steamOff, source));
      } else {
        lines_.onward("HU", "steam", joined(amount.empty() ? lines_.open("steam", w) : amount, joined(source, idle)));
      }
    }
    if (!heatsFirst) reheat();
  }

  Result<std::string> finishRoom() {
    lines_.fan("SA", "after");
    const std::string supply = lines_.air();
    lines_.step("RM", "room " + supply, keys_.typed(request_.partLoad ? "part" : "room", loadKeys));
    const bool holdsRoom = held_ != Held::nothing;
    if (holdsRoom) {
      const bool alone = sizedFlow() || held_ == Held::temperature;
      if (alone && !keys_.has("room.db"))
        return Error{ErrorCode::noResult, "room.db", "is needed to hold the room's temperature"};
      lines_.goalsOf("RM", "room", alone ? setOf(db) : stateKeys);
    }
    if (sizedFlow()) {
      if (openFlows_ > 0) {
        lines_.goal(supply, assigned(lbh, request_.sized->value("RM", lbh, request_.site)), "the flow at full load");
      }
    } else if (const Outcome outcome = lines_.supplyGoals(supply, !heats_); !outcome) {
      return outcome.error();
    }
    return lines_.finish();
  }

  static constexpr Parameter share_ = Parameter::share;
  struct Step {
    std::string name, source, parameters;
  };

  const LineRequest& request_;
  const ReadymadeKeys& keys_;
  Held held_;
  LineWriter lines_;
  bool recovers_, bypasses_, heats_, reheats_, outdoor_, returns_;
  bool reheat_ = false, reheatOpen_ = false, preheats_ = false;
  int openFlows_ = 0;
  std::string back_;
  std::vector<Step> backSteps_;
};

}  // namespace

Result<std::string> writeHandler(const LineRequest& request) { return Handler(request).write(); }

}  // namespace moistair
