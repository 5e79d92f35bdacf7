// A window that lists 64 arrangements, each in its row, with the styles that they use. What the windows of files, of
// new files and of the factory banks have in common.
#pragma once

#include <string>
#include <vector>

#include "core/child_window.h"

namespace zentaline {

class ArrListWindow : public ChildWindow {
 public:
  ui::ListBox List1{*this, "List1"};
  ui::ComboBox Combo1{*this, "Combo1"};

  // The record's name in its list row has changed; the label and the mark stay.
  void ShowRecordName(int index);
  // Rows, styles and buttons by the records, which others have changed; selection and focus stay.
  virtual void RecordsChanged() { FillRows(); }

  ui::ListBox* ItemList() override { return &List1; }
  void ShowItems(const ItemsShown& shown) override;
  void ShowStep(const EditStep& step) override;

 protected:
  // A step back or forth has put the list on a row, silently: what the window shows of it.
  virtual void RowShown(int row) { (void)row; }
  // The records, or the styles, have gone a step back or forth.
  virtual void ForgetSent(bool records, bool styles) {
    (void)records;
    (void)styles;
  }
  // The image carries everything; `number` tells windows of one class apart.
  ArrListWindow(Application& app, std::string name, std::string number, Bytes image);

  // The rows by the records, and the factory styles that they use. True when a record has been written.
  bool FillRows();
  // Whether the record's style is one of the user's. A bank has factory styles only, whatever the byte says.
  virtual bool UsesUserStyle(int row) const;
  void AddFactoryStyle(int number);
  // The style of a record in the box.
  void ShowStyle(int row);
  // Nothing stands behind the row's label.
  bool IsEmptyRow(int row) const;
  std::string RowLabel(int row) const;

  int record_byte(int row, std::size_t offset) const;
  std::string Path() const;

 private:
  std::string RowText(int row) const;
  // The styles of the file, by their entries.
  std::vector<std::string> UserStyles() const;
  void ShowRows(std::vector<std::string> rows);
};

}  // namespace zentaline
