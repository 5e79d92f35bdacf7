// What a form's controls show, given to controls of the same kinds that nobody listens to: the yardstick of showing a
// record in an editor.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "bench/program.h"
#include "ui/controls.h"
#include "ui/form.h"
#include "ui/picture.h"

namespace zentaline::bench {

class PlainForm {
 public:
  explicit PlainForm(Application& app) : window_(app, "frmPlain", "0") {}

  // Keeps what the form shows now as state 0 or 1.
  void Keep(const ui::Form& form, int which) {
    State& state = states_[which];
    state.caption = form.caption();
    for (ui::Control* control : form.controls()) Keep(*control, state);
  }
  void Assign(int which) {
    const State& state = states_[which];
    window_.SetCaption(state.caption);
    for (const Number& each : state.numbers) each.set(each.value);
    for (const Text& each : state.texts) each.set(each.value);
    for (const Picture& each : state.pictures) each.set(each.value);
  }

 private:
  template <class Value>
  struct Assignment {
    std::function<void(const Value&)> set;
    Value value;
  };
  using Number = Assignment<int>;
  using Text = Assignment<std::string>;
  using Picture = Assignment<ui::Drawing>;
  struct State {
    std::string caption;
    std::vector<Number> numbers;
    std::vector<Text> texts;
    std::vector<Picture> pictures;
  };

  template <class T>
  T& Made(const T& like) {
    if (ui::Control* made = window_.Find(like.name(), like.index())) return static_cast<T&>(*made);
    made_.push_back(std::make_unique<T>(window_, like.name(), like.index()));
    return static_cast<T&>(*made_.back());
  }

  // Names that no record changes are left out.
  static bool IsName(const ui::Control& label) { return label.name() == "LabelName" || label.name() == "LabelText"; }

  void Keep(ui::Control& control, State& state) {
    if (const auto* bar = dynamic_cast<ui::ScrollBar*>(&control)) {
      auto& made = Made(*bar);
      made.SetRange(bar->min(), bar->max());
      state.numbers.push_back({[&made](int value) { made.SetValue(value); }, bar->value()});
    } else if (const auto* list = dynamic_cast<ui::ComboBox*>(&control)) {
      auto& made = Made(*list);
      while (made.rows() < list->rows()) made.AddRow(list->RowText(made.rows()));
      state.numbers.push_back({[&made](int value) { made.SetRow(value); }, list->row()});
    } else if (const auto* box = dynamic_cast<ui::CheckBox*>(&control)) {
      auto& made = Made(*box);
      state.numbers.push_back({[&made](int value) { made.SetValue(value != 0); }, box->value() ? 1 : 0});
    } else if (const auto* option = dynamic_cast<ui::OptionButton*>(&control)) {
      auto& made = Made(*option);
      state.numbers.push_back({[&made](int value) { made.ShowValue(value != 0); }, option->value() ? 1 : 0});
    } else if (const auto* text = dynamic_cast<ui::TextBox*>(&control)) {
      auto& made = Made(*text);
      state.texts.push_back({[&made](const std::string& value) { made.SetText(value); }, text->text()});
    } else if (const auto* picture = dynamic_cast<ui::Picture*>(&control)) {
      auto& made = Made(*picture);
      state.pictures.push_back({[&made](const ui::Drawing& value) { made.SetDrawing(value); }, picture->drawing()});
    } else if (const auto* label = dynamic_cast<ui::Label*>(&control); label != nullptr && !IsName(*label)) {
      auto& made = Made(*label);
      state.texts.push_back({[&made](const std::string& value) { made.SetCaption(value); }, label->caption()});
    }
  }

  PlainWindow window_;
  std::vector<std::unique_ptr<ui::Control>> made_;
  State states_[2];
};

}  // namespace zentaline::bench
