// The windows of forms: the main window, the child windows in its area, and modal dialogs.
#pragma once

#include <QBoxLayout>
#include <QDialog>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QProgressBar>
#include <vector>

#include "ui/form.h"
#include "ui/qt/gate.h"
#include "ui/qt/view.h"
#include "ui/qt/words.h"

namespace zentaline::ui::qt {

// Lives as long as its frame, whose child it is. After Detach it has no form any more.
class FormWindow : public QObject, public FormView {
 public:
  FormWindow(Form& form, Gate& gate, QWidget* frame);
  ~FormWindow() override;

  Form* form() const { return form_; }
  QWidget* frame() const { return frame_; }
  QWidget* body() const { return body_; }
  void ShowCaption() override;
  // Tells the form its place and inner size as they are now.
  void Report();
  // From now on the form keeps the places that it is told otherwise.
  void KeepPlaces() { keeps_places_ = true; }
  void Detach();
  // Gives the focus to the widget of the control that has it in the model.
  void ShowFocus();

  // Of the frame's events.
  void GeometryChanged();
  void CloseAsked();

 protected:
  virtual Placement PlacementNow() const;
  virtual Size InnerNow() const;
  void BuildIn(QWidget* parent);
  // Widgets of the form outside of its body.
  void Keep(const std::vector<View*>& views);
  Gate& gate() const { return gate_; }
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  Form* form_;
  Gate& gate_;
  QWidget* frame_;
  QWidget* body_ = nullptr;
  std::vector<QPointer<View>> views_;
  bool report_due_ = false;
  bool keeps_places_ = false;
};

class MainFormWindow : public FormWindow {
 public:
  MainFormWindow(Form& form, Gate& gate, const Words& words);
  void ShowPlacement() override;
  QMainWindow* window() const { return window_; }
  QMdiArea* area() const { return area_; }
  void ShowProgress(std::uint32_t gone, std::uint32_t total, int seconds_left);
  void HideProgress();

 protected:
  Placement PlacementNow() const override;
  Size InnerNow() const override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Place();
  void BuildFreeRoom();
  void PlaceProgress();
  bool HasRoomBeside(int width) const;
  QMainWindow* window_;
  QMdiArea* area_;
  QHBoxLayout* strip_;
  QProgressBar* progress_;
  QWidget* free_room_ = nullptr;  // over the area while the form shows something there
  QWidget* free_part_ = nullptr;  // by which it comes and goes
  const Words& words_;
};

class ChildFormWindow : public FormWindow {
 public:
  // `area` is that of the main window. Without a place of its own it goes beside the window that it belongs to, null
  // where there is none.
  ChildFormWindow(Form& form, Gate& gate, const Words& words, QMdiArea* area, const Form* belongs_to);
  void ShowPlacement() override;
  QMdiSubWindow* window() const { return window_; }

 protected:
  Placement PlacementNow() const override;

 private:
  void Place(const Placement& placement);
  QMdiSubWindow* window_;
  mutable QRect normal_;  // the place to which a minimised or maximised window goes back
};

class ModalFormWindow : public FormWindow {
 public:
  ModalFormWindow(Form& form, Gate& gate, QWidget* parent);
  void ShowPlacement() override;
  QDialog* window() const { return window_; }

 private:
  QDialog* window_;
};

}  // namespace zentaline::ui::qt
