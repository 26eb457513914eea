// The ready-made systems and their keys, as tables, and how keys are read.
#include <algorithm>
#include <bit>
#include <iterator>

#include "process/readymadelines.h"
#include "process/words.h"
#include "text/utf8.h"
#include "text/words.h"

namespace moistair {

namespace {

using enum Parameter;

constexpr ParameterSet states = setOf(db, wb, rh, w, h, dp, v);
constexpr ParameterSet flows = setOf(acfm, scfm, lbh);
constexpr ParameterSet loads = setOf(sensible, latent, total, shr, water, hg);

constexpr KeyGroup room = {"room", "the state that the room is to have, and its gains (losses are negative)",
                           states | loads, StepKind::room};
constexpr KeyGroup part = {"part", "gains at part load, with the flow and the coil of the full load", loads,
                           StepKind::room};
constexpr KeyGroup outdoor = {"outdoor", "outdoor air, and how much: a flow, or its share of the supply air",
                              states | flows | setOf(share), StepKind::air};
constexpr KeyGroup allOutdoor = {"outdoor", "outdoor air; all of the supply air is outdoor air", states | flows,
                                 StepKind::air};
constexpr KeyGroup returned = {"return", "return air: what heats it on its way back, and its flow if that is given",
                               setOf(dt, btuh) | flows};
constexpr KeyGroup heatedReturn = {"return", "return air: what heats it on its way back", setOf(dt, btuh)};
constexpr KeyGroup supply = {"supply", "air that enters the room: its state, its difference to the room, its flow",
                             setOf(db, wb, rh, w, dp, dt) | flows};
constexpr KeyGroup supplyGiven = {"supply", "air that enters the room: its state and flow", states | flows};
constexpr KeyGroup coil = {"coil", "cooling coil; up to two values, the rest is solved for",
                           setOf(adp, bf, db, wb, rh, w, dp, shr, total, sensible, condensate, waterDt)};
constexpr KeyGroup reheat = {"reheat", "reheat coil; solved for if it is needed and not given", setOf(db, dt, btuh)};
constexpr KeyGroup bypassed = {"bypass", "room air that bypasses the coil; solved for if not given",
                               flows | setOf(share)};
constexpr KeyGroup fan = {"fan",
                          "supply fan",
                          setOf(inwg, eff, bhp, dt, motorEff, motor),
                          StepKind::fan,
                          false,
                          {"place", {"after", "before"}, "where it is: after the coil (if not given) or before"}};
constexpr KeyGroup recovery = {"recovery", "heat recovery from the room's air", setOf(sens, lat), StepKind::recover};
constexpr KeyGroup directCooler = {"direct", "direct evaporative cooler", setOf(eff, db, rh)};
constexpr KeyGroup indirectCooler = {
    "indirect",
    "indirect evaporative cooler, before the direct one",
    setOf(eff, db, rh),
    std::nullopt,
    false,
    {"from", {"outdoor", "room"}, "air on its wet side: outdoor (if not given) or room air"}};
constexpr KeyGroup stages = {
    "",           "",    0,
    std::nullopt, false, {"stages", {"direct", "indirect", "both"}, "coolers; those with keys if not given"}};
constexpr KeyGroup preheat = {
    "preheat",    "preheat coil", setOf(db, rh, dt, btuh),
    std::nullopt, false,          {"place", {"outdoor", "mixed"}, "in the outdoor (if not given) or in the mixed air"}};
constexpr KeyGroup humidifier = {
    "",    "",
    0,     std::nullopt,
    false, {"humidifier", {"steam", "washer", "none"}, "the one with keys if not given; without keys steam"}};
constexpr KeyGroup steamed = {"steam", "steam humidifier; its amount is solved for if not given",
                              setOf(rh, w, dp, water, psig, degf, hg)};
constexpr KeyGroup washer = {"washer", "air washer; with a value given the preheat coil is solved for",
                             setOf(eff, db, rh)};
constexpr KeyGroup zones = {"",           "",    0,
                            std::nullopt, false, {"zones", {}, "names of the zones, such as zones=East,West"}};
constexpr KeyGroup zone = {"", "each zone: the dry bulb that it is to have, and its gains", setOf(db) | loads,
                           StepKind::room, true};
constexpr KeyGroup smallest = {"min", "each zone's smallest flow, or its share of the flow at full load",
                               flows | setOf(share), std::nullopt, true};
constexpr KeyGroup zonePart = {"part", "each zone's gains at part load; those of full load if not given", loads,
                               StepKind::room, true};

constexpr const KeyGroup* singleZoneGroups[] = {&room, &outdoor, &returned, &supply, &coil, &fan, &reheat, &part};
constexpr const KeyGroup* bypassGroups[] = {&room, &outdoor, &returned, &supply, &coil, &bypassed, &fan, &part};
constexpr const KeyGroup* recoveryGroups[] = {&room, &allOutdoor, &heatedReturn, &recovery, &supply,
                                              &coil, &fan,        &reheat,       &part};
constexpr const KeyGroup* evaporativeGroups[] = {&room,         &allOutdoor, &stages, &indirectCooler,
                                                 &directCooler, &supply,     &fan};
constexpr const KeyGroup* winterGroups[] = {&room,       &outdoor, &returned, &supply, &preheat,
                                            &humidifier, &steamed, &washer,   &reheat, &fan};
constexpr const KeyGroup* vavGroups[] = {&zones,        &zone,   &smallest, &zonePart, &outdoor,
                                         &heatedReturn, &supply, &coil,     &fan};
constexpr const KeyGroup* roomGroups[] = {&supplyGiven, &room};

constexpr ReadymadeRow systems[] = {
    {"single-zone", "one room, mixed air, a cooling coil; reheat where it is needed",
     "room.db=78 room.rh=50 room.total=120000 room.shr=0.7 outdoor.db=95 outdoor.rh=55 outdoor.acfm=1000 supply.db=58",
     singleZoneGroups, writeHandler},
    {"reheat", "the same with a reheat coil; at part load it keeps the room's temperature",
     "room.db=78 room.rh=50 room.sensible=80000 room.latent=20000 supply.db=56.5 part.sensible=47000 part.latent=20000",
     singleZoneGroups, writeHandler},
    {"bypass", "the same with room air around the coil",
     "room.db=78.8 room.sensible=47770 room.latent=30710 outdoor.db=93.2 outdoor.rh=50 outdoor.lbh=2063 "
     "return.lbh=7461 coil.db=42.8 coil.rh=100",
     bypassGroups, writeHandler},
    {"recovery", "all outdoor air, with recovery from the room's air before the coil",
     "room.db=75 room.rh=50 room.sensible=60000 room.latent=15000 outdoor.db=95 outdoor.wb=78 recovery.sens=0.75 "
     "recovery.lat=0.7 supply.db=57",
     recoveryGroups, writeHandler},
    {"evaporative", "all outdoor air through a direct or indirect evaporative cooler, or both",
     "room.db=80 room.sensible=60000 room.latent=5000 outdoor.db=100 outdoor.wb=65 direct.eff=0.85", evaporativeGroups,
     writeEvaporative},
    {"winter", "preheat, a steam humidifier or an air washer, and reheat",
     "room.db=72 room.rh=35 room.sensible=-60000 room.latent=4000 outdoor.db=10 outdoor.rh=60 outdoor.scfm=1500 "
     "supply.db=95",
     winterGroups, writeHandler},
    {"vav", "several zones, each with its own flow; reheat at the smallest flow",
     "zones=East,West East.db=75 East.sensible=30000 East.latent=4000 West.db=75 West.sensible=20000 West.latent=3000 "
     "outdoor.db=95 outdoor.wb=76 outdoor.acfm=600 supply.db=55 coil.rh=92",
     vavGroups, writeZones},
    {"room", "what a room comes to with given supply air, or the air that it needs",
     "supply.db=55 supply.rh=90 supply.acfm=2000 room.sensible=30000 room.latent=12000", roomGroups, writeRoom},
};

const char* meaningOf(Parameter parameter) {
  switch (parameter) {
    case db: return "dry bulb";
    case wb: return "wet bulb";
    case rh: return "relative humidity";
    case w: return "humidity ratio";
    case h: return "enthalpy";
    case dp: return "dew point";
    case v: return "specific volume";
    case acfm: return "actual flow of air";
    case scfm: return "flow as standard air";
    case lbh: return "flow of dry air";
    case share: return "share";
    case dt: return "difference of temperature";
    case btuh: return "heat";
    case adp: return "apparatus dew point";
    case bf: return "bypass factor";
    case shr: return "sensible heat ratio";
    case total: return "total heat";
    case sensible: return "sensible heat";
    case latent: return "latent heat";
    case condensate: return "counted: condensate takes its heat along";
    case waterDt: return "rise of the cooling water";
    case eff: return "efficiency";
    case water: return "water";
    case psig: return "steam, above the site's pressure";
    case degf: return "steam, its temperature";
    case hg: return "enthalpy of the vapor";
    case inwg: return "total pressure";
    case motorEff: return "efficiency of the motor";
    case motor: return "in or out of the air";
    case bhp: return "shaft power";
    case sens: return "sensible effectiveness";
    case lat: return "latent effectiveness";
    default: return "";
  }
}

std::string prefixOf(const KeyGroup& group, const std::string& zone) {
  std::string prefix = zone.empty() ? "" : zone + ".";
  if (*group.name != '\0') prefix += std::string(group.name) + ".";
  return prefix;
}

void addKeys(std::vector<KeyRow>& keys, const KeyGroup& group, const std::string& zone) {
  const std::string prefix = prefixOf(group, zone);
  for (std::size_t i = 0; i < parameterCount; ++i) {
    const auto parameter = static_cast<Parameter>(i);
    if (!contains(group.parameters, parameter)) continue;
    const std::string unit = unitOf(rowOf(parameter).quantity);
    keys.push_back({prefix + nameOf(parameter), &group, zone, parameter,
                    meaningOf(parameter) + (unit.empty() ? "" : " [" + unit + "]")});
  }
  if (group.word.name != nullptr)
    keys.push_back({prefix + group.word.name, &group, zone, std::nullopt, group.word.meaning});
}

/// Steps that the systems write themselves, so that no zone can have their names.
constexpr std::string_view ownSteps[] = {"OA", "RT", "MA", "CC", "SF", "SA", "RG", "RA", "goal"};

}  // namespace

std::span<const ReadymadeRow> readymadeRows() { return systems; }

const ReadymadeRow* readymadeNamed(std::string_view name) {
  const auto found = std::find_if(std::begin(systems), std::end(systems),
                                  [&](const ReadymadeRow& system) { return name == system.name; });
  return found == std::end(systems) ? nullptr : &*found;
}

std::vector<KeyRow> keysOf(const ReadymadeRow& system, const std::vector<std::string>& zoneNames) {
  std::vector<KeyRow> keys;
  for (const KeyGroup* group : system.groups) {
    if (!group->ofZone) addKeys(keys, *group, "");
  }
  for (const std::string& name : zoneNames) {
    for (const KeyGroup* group : system.groups) {
      if (group->ofZone) addKeys(keys, *group, name);
    }
  }
  return keys;
}

double ReadymadeKeys::number(const std::string& key) const {
  const auto found = values_.find(key);
  return found != values_.end() && found->second.number ? found->second.number->value : noValue;
}

std::string ReadymadeKeys::word(const std::string& key) const {
  const auto found = values_.find(key);
  return found == values_.end() ? "" : found->second.typed;
}

bool ReadymadeKeys::hasAny(const std::string& group) const {
  const auto found = values_.lower_bound(group + ".");
  return found != values_.end() && found->first.starts_with(group + ".");
}

ParameterSet ReadymadeKeys::given(const std::string& group, ParameterSet of) const {
  ParameterSet set = 0;
  for (ParameterSet rest = of; rest != 0; rest &= rest - 1) {
    const auto parameter = static_cast<Parameter>(std::countr_zero(rest));
    if (has(group + "." + nameOf(parameter))) set |= bitOf(parameter);
  }
  return set;
}

std::string ReadymadeKeys::typed(const std::string& group, ParameterSet of) const {
  std::string words;
  for (ParameterSet rest = given(group, of); rest != 0; rest &= rest - 1) {
    const char* name = nameOf(static_cast<Parameter>(std::countr_zero(rest)));
    words += (words.empty() ? "" : ",") + std::string(name) + "=" + word(group + "." + name);
  }
  return words;
}

/// Takes keys one by one and says what is wrong with them.
class KeyReader {
public:
  explicit KeyReader(const ReadymadeRow& system) : read_{ReadymadeKeys(system), {}} {}

  ReadKeys run(const std::vector<std::string>& words) && {
    for (const std::string& word : words) {
      if (lowercase(word).starts_with("zones=")) takeZones(word.substr(word.find('=') + 1));
    }
    rows_ = keysOf(read_.keys.system(), read_.keys.zones_);
    for (const std::string& word : words) take(word);
    if (read_.errors.empty()) checkGroups();
    return std::move(read_);
  }

private:
  void fail(ErrorCode code, const std::string& key, const std::string& words) {
    read_.errors.push_back({code, key, words});
  }

  void takeZones(const std::string& list) {
    const auto groups = read_.keys.system().groups;
    if (std::find(groups.begin(), groups.end(), &zones) == groups.end()) return;
    constexpr std::size_t most = 100;
    std::string_view rest = list;
    while (true) {
      const std::size_t end = std::min(rest.find(','), rest.size());
      const std::string name(trimmed(rest.substr(0, end)));
      if (const std::string wrong = wrongZone(name); !wrong.empty()) {
        fail(ErrorCode::unreadable, "zones", wrong);
      } else if (read_.keys.zones_.size() == most) {
        fail(ErrorCode::tooLarge, "zones", "more than 100 zones");
        return;
      } else {
        read_.keys.zones_.push_back(name);
      }
      if (end == rest.size()) return;
      rest.remove_prefix(end + 1);
    }
  }

  std::string wrongZone(const std::string& name) const {
    if (name.empty()) return "a name is missing, such as zones=East,West";
    const bool taken = std::find(std::begin(ownSteps), std::end(ownSteps), name) != std::end(ownSteps);
    const auto& others = read_.keys.zones_;
    if (std::find(others.begin(), others.end(), name) != others.end()) return inQuotes(name) + " is named twice";
    if (taken || name.starts_with("box-") || name.starts_with("heat-"))
      return "the system has a step " + name + " of its own; choose another name";
    for (const KeyGroup* group : read_.keys.system().groups) {
      if (*group->name != '\0' && lowercase(name) == group->name) {
        return inQuotes(name) + " is a group of keys; choose another name";
      }
    }
    const bool control =
        std::any_of(name.begin(), name.end(), [](char c) { return static_cast<unsigned char>(c) <= ' '; });
    if (control || !isUtf8(name) || name.find_first_of(":=?.\"#") != std::string::npos)
      return inQuotes(name) + " cannot be a name: it must not contain blanks or : = ? . \" #";
    return {};
  }

  const KeyRow* rowNamed(const std::string& name) const {
    const std::string small = lowercase(name);
    for (const KeyRow& row : rows_) {
      const std::string after = row.name.substr(row.zone.size());  // the name of a zone keeps its capitals
      if (row.name.size() == name.size() && name.starts_with(row.zone) && small.substr(row.zone.size()) == after) {
        return &row;
      }
    }
    return nullptr;
  }

  void take(const std::string& word) {
    const std::size_t equals = word.find('=');
    if (equals == std::string::npos) {
      return fail(ErrorCode::unreadable, "", inQuotes(word) + " is not KEY=VALUE, such as room.db=75");
    }
    const std::string name = word.substr(0, equals);
    const std::string value(trimmed(std::string_view(word).substr(equals + 1)));
    const KeyRow* row = rowNamed(name);
    if (row == nullptr) return failUnknown(name);
    if (read_.keys.has(row->name)) return fail(ErrorCode::duplicate, row->name, "is given twice");
    if (value.empty()) return fail(ErrorCode::unreadable, row->name, "the value is missing");
    if (!row->parameter) return takeWord(*row, value);
    const Result<Assignment> read = readAssignment(*row->parameter, value);
    // The error's place would repeat the parameter, which the key has already.
    if (!read) return fail(read.error().code, row->name, read.error().words);
    if (read->unknown) {
      return fail(ErrorCode::unreadable, row->name,
                  "leave it out to have it solved for; ? is for the lines of process");
    }
    if (const Outcome range = checkValue(*row->parameter, read->value); !range) {
      return fail(range.error().code, row->name, range.error().words);
    }
    read_.keys.values_[row->name] = {value, *read};
  }

  void takeWord(const KeyRow& row, const std::string& value) {
    std::string all;
    for (const char* word : row.group->word.words) {
      if (word == nullptr) continue;
      if (lowercase(value) == word) {
        read_.keys.values_[row.name] = {word, std::nullopt};
        return;
      }
      all += (all.empty() ? "" : ", ") + std::string(word);
    }
    if (!all.empty()) return fail(ErrorCode::unreadable, row.name, inQuotes(value) + " is not one of " + all);
    read_.keys.values_[row.name] = {value, std::nullopt};
  }

  void failUnknown(const std::string& name) {
    const std::string system = read_.keys.system().name;
    ClosestWord closest(name);
    for (const KeyRow& row : rows_) closest.offer(row.name);
    std::string cure = closest.question();
    const std::string groupName = lowercase(name.substr(0, name.find('.')));
    if (cure.empty()) {
      std::string keys;
      for (const KeyRow& row : rows_) {
        if (row.name.starts_with(groupName + ".")) keys += (keys.empty() ? "" : ", ") + row.name;
      }
      cure = keys.empty() ? "; design " + system + " --help lists its keys" : "; it has " + keys;
    }
    fail(ErrorCode::unknownName, "", system + " has no key " + inQuotes(name) + cure);
  }

  /// What of a group makes a step has to be a set that the step takes.
  void checkGroups() {
    for (const KeyGroup* group : read_.keys.system().groups) {
      if (!group->kind) continue;
      if (!group->ofZone) checkGroup(*group, group->name);
      for (const std::string& name : read_.keys.zones_) {
        if (group->ofZone) checkGroup(*group, name + (*group->name == '\0' ? "" : std::string(".") + group->name));
      }
    }
  }

  void checkGroup(const KeyGroup& group, const std::string& name) {
    const bool ofRoom = *group.kind == StepKind::room;
    ParameterSet step = rowOf(*group.kind).accepted & group.parameters;
    if (!ofRoom) step &= ~setOf(share);
    const ParameterSet given = read_.keys.given(name, step);
    // Only a room's own gains have to be given; other groups are left out as a whole.
    const bool needed = ofRoom && std::string_view(group.name) != "part";
    if (given == 0 && !needed && !read_.keys.hasAny(name)) return;
    if (const Outcome outcome = checkGiven(*group.kind, given); !outcome) {
      const std::string what = needed ? "gains: " : "";
      std::string place = name;
      if (!outcome.error().place.empty()) place += "." + outcome.error().place;
      fail(outcome.error().code, place, what + outcome.error().words);
    }
    if (*group.kind == StepKind::air && contains(group.parameters, share) && read_.keys.has(name + ".share") &&
        read_.keys.given(name, flows) != 0) {
      fail(ErrorCode::duplicate, name, "give a flow or a share, not both");
    }
  }

  ReadKeys read_;
  std::vector<KeyRow> rows_;
};

ReadKeys readKeys(const ReadymadeRow& system, const std::vector<std::string>& words) {
  return KeyReader(system).run(words);
}

}  // namespace moistair
