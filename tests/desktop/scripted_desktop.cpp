#include "tests/desktop/scripted_desktop.h"

#include <utility>

namespace zentaline::ui::qt {

class ScriptedDesktop::BothViews : public FormView {
 public:
  BothViews(Form& form, FormView& measured, FormWindow& shown) : measured_(measured), shown_(shown) {
    form.view = this;
  }
  void ShowCaption() override {
    measured_.ShowCaption();
    shown_.ShowCaption();
  }
  void ShowPlacement() override {
    shown_.ShowPlacement();
    measured_.ShowPlacement();
  }

 private:
  FormView& measured_;
  FormWindow& shown_;
};

ScriptedDesktop::ScriptedDesktop(Clock clock, std::function<void(const std::string&)> sink, Rest rest)
    : ConsoleToolkit(clock, std::move(sink), std::move(rest)) {
  windows_.tells_places = false;
}

ScriptedDesktop::~ScriptedDesktop() {
  windows_.Drop();
}

void ScriptedDesktop::ShowForm(Form& form) {
  ConsoleToolkit::ShowForm(form);
  FormView* measured = form.view;
  if (!form.open() || measured == nullptr) return;
  windows_.Show(form, EnglishWords());
  if (FormWindow* shown = windows_.Of(form)) views_[&form] = std::make_unique<BothViews>(form, *measured, *shown);
}

void ScriptedDesktop::HideForm(Form& form) {
  windows_.Hide(form);
  views_.erase(&form);
  ConsoleToolkit::HideForm(form);
}

void ScriptedDesktop::RaiseForm(Form& form) {
  windows_.Raise(form);
}

}  // namespace zentaline::ui::qt
