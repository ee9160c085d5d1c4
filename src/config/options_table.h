#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "toolkit/panels.h"

namespace quorvale {

class Form;
class Options;
struct OptionRow;

// An option and its control, which shows the stored text and gives the text to store.
struct OptionField {
  const OptionRow* option;
  std::function<void(const std::string& stored)> show;
  std::function<std::string()> value;
};

// The controls of the options dialog, made from a table with a row for each. A row with an option is also the option's
// field.
class OptionsTable {
 public:
  // Adds the controls to the form. They live as long as this table.
  explicit OptionsTable(Form& form);

  // The frame of a page; `page` counts from 1, as the tabs do.
  Frame& Page(int page) const { return *pages_.at(static_cast<std::size_t>(page) - 1); }

  // Fills the controls from the store, in the order of `kDialogOptions`. Returns whether the store could be read;
  // controls whose value could not be read show the fallback. If a control can't hold the stored value of one of the
  // options up to the background, this fails, the description names the key, and later options are not read. A control
  // behind these stays unchanged.
  bool Load(const Options& options) const;

  // The same, but never fails: every control that can't hold its value stays unchanged.
  bool LoadUsable(const Options& options) const;

  // Stores the values of all controls without checking them, in the same order. Those of the page "More"
  // only if they have changed.
  void Save(Options& options) const;

 private:
  class Builder;

  std::vector<std::unique_ptr<Widget>> controls_;
  std::vector<Frame*> pages_;
  std::vector<OptionField> fields_;
};

}  // namespace quorvale
