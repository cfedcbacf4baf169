// Rows of which the tables of dialogs are made.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "dialog_sheets.h"

namespace ondrel::e2e {

using Rows = std::vector<SheetRow>;

inline SheetRow Words(const char* text) {
  return {.Text = text};
}

inline SheetRow Number(int id, const char* shown, const Limits& edges, const char* entered,
                       const char* later = nullptr) {
  return {.Sort = SheetRow::Kind::Number,
          .Id = id,
          .Shown = shown,
          .Entered = entered,
          .Later = later == nullptr ? entered : later,
          .Edges = edges};
}

inline SheetRow List(int id, std::vector<std::string> choices, const char* shown,
                     const char* chosen) {
  return {.Sort = SheetRow::Kind::List,
          .Id = id,
          .Choices = std::move(choices),
          .Shown = shown,
          .Entered = chosen,
          .Later = chosen};
}

inline SheetRow Check(int id, const char* text, bool on) {
  return {.Sort = SheetRow::Kind::Check,
          .Id = id,
          .Text = text,
          .Shown = on ? "on" : "",
          .Entered = "on",
          .Later = on ? "" : "on"};
}

inline SheetRow Radio(int id, const char* text, bool on) {
  return {.Sort = SheetRow::Kind::Radio,
          .Id = id,
          .Text = text,
          .Shown = on ? "on" : "",
          .Entered = on ? "" : "on",
          .Later = on ? "" : "on"};
}

inline const Limits kPositive{{"0", "0.001"}, {"-1", "1e3"}};

}  // namespace ondrel::e2e
