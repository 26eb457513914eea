// Labels: which of them get which places.
#include "sheet/labels.h"

#include <gtest/gtest.h>

namespace {

using namespace moistair;

const ExtentFunction tenWide = [](const std::string&, double, bool) { return TextExtent{10, 8, 0}; };

LabelPlace at(const char* text, double x, double cost = 0) {
  return {{{x, 50}, text, {}, Anchor::middle, 0}, cost, {}};
}

/// The texts that are drawn, each with its place.
std::string placed(LabelBoard& board, std::vector<Label> labels) {
  SheetCanvas canvas(tenWide);
  for (Label& label : labels) board.add(std::move(label));
  board.place(canvas, {});
  std::string texts;
  for (const SheetOperation& operation : canvas.takePage().operations) {
    const auto& text = std::get<SheetTextOperation>(operation);
    texts += text.text + std::to_string(static_cast<int>(text.at.x)) + " ";
  }
  return texts;
}

LabelBoard board() { return {boxOf(SheetPoint{0, 0}, {100, 100}), 0}; }

TEST(Labels, TheMoreImportantOneStandsWhereOnlyOneCan) {
  LabelBoard one = board();
  EXPECT_EQ(placed(one, {{1, {at("a", 20)}}, {2, {at("b", 24)}}}), "b24 ");
}

TEST(Labels, OneThatHasAnotherPlaceMakesRoom) {
  LabelBoard one = board();
  EXPECT_EQ(placed(one, {{2, {at("a", 20), at("a", 60, 1)}}, {1, {at("b", 24)}}}), "a60 b24 ");
}

TEST(Labels, WallsFixedTextsAndTheEdgeAreKeptOff) {
  LabelBoard one = board();
  one.wall({{30, 0}, {30, 100}});
  one.fix(boxOf(SheetPoint{45, 40}, {65, 60}));
  EXPECT_EQ(placed(one, {{1, {at("a", 30), at("a", 50, 1), at("a", 98, 2), at("a", 80, 3)}}}), "a80 ");
}

TEST(Labels, WhatCoversLessIsChosen) {
  LabelBoard one = board();
  one.line({{20, 0}, {20, 100}}, 1);
  EXPECT_EQ(placed(one, {{1, {at("a", 20), at("a", 60, 0.5)}}}), "a60 ");
}

}  // namespace
