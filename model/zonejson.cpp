#include "model/zonejson.h"

#include <algorithm>

#include "text/value.h"

namespace moistair {

namespace {

Json numberOrNull(double number) { return hasValue(number) ? jsonNumber(number) : Json(); }

double numberOr(const JsonNode& node, double none) { return node.isNull() ? none : node.number(); }

PropertyLimits limitsOf(const JsonNode::Member& member) {
  const auto named = [&](const Property& property) { return member.key == property.key; };
  const auto row = std::find_if(heldProperties.begin(), heldProperties.end(), named);
  if (row == heldProperties.end()) member.node.fail("this key is no property");
  const auto values = member.node.elements("value");
  if (values.size() != 2) member.node.fail("must be the lowest and the highest value");
  return {row->kind, numberOr(values[0], -unbounded), numberOr(values[1], unbounded)};
}

Json envelopeJson(const Envelope& envelope) {
  Json json{{"kind", "envelope"}, {"name", envelope.name}, {"title", envelope.title}, {"limits", Json::object()}};
  for (const auto& [kind, low, high] : envelope.limits) {
    json["limits"][nameOf(kind)] = Json::array({numberOrNull(low), numberOrNull(high)});
  }
  if (const auto& derating = envelope.derating) {
    json["derating"] = {{"above", jsonNumber(derating->above)}, {"per1000ft", jsonNumber(derating->perThousandFeet)}};
  }
  return json;
}

Json comfortJson(const ComfortZone& zone) {
  const Occupant& person = zone.occupant;
  Json json{{"kind", "comfort"},
            {"method", rowOf(person.method).key},
            {"met", jsonNumber(person.met)},
            {"clo", jsonNumber(person.clo)},
            {"fpm", jsonNumber(person.airSpeed)},
            {"moving", person.movingBody}};
  if (person.radiant) json["mrt"] = jsonNumber(*person.radiant);
  json["pmv"] = jsonNumber(zone.mostVote);
  json["dp"] = jsonNumber(zone.mostDewPoint);
  return json;
}

Json adaptiveJson(const AdaptiveZone& zone) {
  Json json{{"kind", "adaptive"},
            {"mean", jsonNumber(zone.runningMean)},
            {"accepting", zone.accepting},
            {"fpm", jsonNumber(zone.airSpeed)}};
  if (zone.radiant) json["mrt"] = jsonNumber(*zone.radiant);
  return json;
}

std::optional<double> radiantOf(const JsonNode& node) {
  const auto radiant = node.find("mrt");
  return radiant ? std::optional(radiant->number()) : std::nullopt;
}

ComfortZone comfortOf(const JsonNode& node) {
  node.onlyKeys({"kind", "method", "met", "clo", "fpm", "moving", "mrt", "pmv", "dp"});
  const JsonNode method = node.at("method");
  const auto row = std::find_if(comfortMethods.begin(), comfortMethods.end(),
                                [&](const ComfortMethodRow& at) { return method.text() == at.key; });
  if (row == comfortMethods.end()) method.fail("must be ashrae or iso");
  const Occupant person{static_cast<ComfortMethod>(row - comfortMethods.begin()),
                        node.at("met").number(),
                        node.at("clo").number(),
                        node.at("fpm").number(),
                        node.at("moving").flag(),
                        radiantOf(node)};
  return {person, node.at("pmv").number(), node.at("dp").number()};
}

AdaptiveZone adaptiveOf(const JsonNode& node) {
  node.onlyKeys({"kind", "mean", "accepting", "fpm", "mrt"});
  const double accepting = node.at("accepting").number();
  return {node.at("mean").number(),
          accepting == 80   ? 80
          : accepting == 90 ? 90
                            : 0,
          radiantOf(node), node.at("fpm").number()};
}

Zone zoneOfKind(const JsonNode& node) {
  const JsonNode kind = node.at("kind");
  if (kind.text() == "comfort") return comfortOf(node);
  if (kind.text() == "adaptive") return adaptiveOf(node);
  if (kind.text() != "envelope") kind.fail("must be one of comfort, adaptive, envelope");
  node.onlyKeys({"kind", "name", "title", "limits", "derating"});
  return envelopeOf(node);
}

}  // namespace

Envelope envelopeOf(const JsonNode& node) {
  Envelope envelope{node.at("name").text(), node.at("title").text(), {}, {}};
  for (const JsonNode::Member& member : node.at("limits").members()) envelope.limits.push_back(limitsOf(member));
  if (const auto derating = node.find("derating")) {
    derating->onlyKeys({"above", "per1000ft"});
    envelope.derating = Derating{derating->at("above").number(), derating->at("per1000ft").number()};
  }
  return envelope;
}

Json zoneJson(const Zone& zone) {
  if (const auto* comfort = std::get_if<ComfortZone>(&zone)) return comfortJson(*comfort);
  if (const auto* adaptive = std::get_if<AdaptiveZone>(&zone)) return adaptiveJson(*adaptive);
  return envelopeJson(std::get<Envelope>(zone));
}

Zone zoneOf(const JsonNode& node) {
  Zone zone = zoneOfKind(node);
  if (const Outcome checked = checkZone(zone); !checked) node.fail(checked.error().text());
  return zone;
}

}  // namespace moistair
