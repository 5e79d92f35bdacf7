// What the tables of arrangements and of programs have in common: banks of rows, and templates that rows begin from.
#pragma once

#include <map>
#include <string>

#include "tools/factory/source.h"

namespace zentaline::factory {

class BankTables {
 public:
  explicit BankTables(Problems& problems) : problems_(problems) {}
  virtual ~BankTables() = default;

  // Templates and banks; a later table may stand on what an earlier one told.
  void Read(const std::string& path);

  // File name, such as "i40ArrA.arr", to the bytes of the file.
  const std::map<std::string, Bytes>& Banks() const { return banks_; }

 protected:
  // The record that a template begins from when it names no other.
  virtual Bytes EmptyRecord() const = 0;
  // `rest` is what follows the word "bank"; bank_ and the bank's file are to be set.
  virtual void ReadBankHead(const SourceLine& line, std::string_view rest) = 0;
  virtual void ReadRow(const SourceLine& line) = 0;
  virtual void ApplySettings(const SourceLine& line, std::string_view settings, Bytes& record) = 0;

  Problems& problems_;
  std::map<Bytes, Bytes, std::less<>> templates_;
  std::map<std::string, Bytes> banks_;
  std::string bank_;  // that the next rows belong to

 private:
  void ReadTemplateHead(const SourceLine& line, std::string_view rest);

  Bytes template_;  // that the next settings belong to; empty within a bank
};

}  // namespace zentaline::factory
