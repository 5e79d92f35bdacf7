#include "tools/factory/bank_tables.h"

namespace zentaline::factory {

void BankTables::Read(const std::string& path) {
  for (const SourceLine& line : ReadSource(path, problems_)) {
    std::string_view rest;
    const std::string_view word = FirstWord(line.text, rest);
    if (line.indented && !template_.empty()) {
      ApplySettings(line, line.text, templates_[template_]);
    } else if (line.indented) {
      ReadRow(line);
    } else if (word == "bank") {
      template_.clear();
      ReadBankHead(line, rest);
    } else if (word == "template") {
      ReadTemplateHead(line, rest);
    } else {
      problems_.Add(line, "neither a bank nor a template begins here");
    }
  }
  template_.clear();
}

void BankTables::ReadTemplateHead(const SourceLine& line, std::string_view rest) {
  const std::size_t from = rest.find(" from ");
  template_ = Bytes(Trim(rest.substr(0, from)));
  Bytes record = EmptyRecord();
  if (from != std::string_view::npos) {
    const auto base = templates_.find(Trim(rest.substr(from + 6)));
    if (base == templates_.end()) {
      problems_.Add(line, "the template to begin from isn't known");
    } else {
      record = base->second;
    }
  }
  if (!templates_.emplace(template_, record).second) problems_.Add(line, "this template is there already");
}

}  // namespace zentaline::factory
