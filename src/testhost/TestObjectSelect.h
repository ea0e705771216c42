#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "orvel/OrvelObjectSelect.h"
#include "testhost/PickerAnswers.h"

namespace orvel {

class CallLog;

// The text search dialog of the test host. Property writes and Show are
// logged in the Host channel ("OrvelObjectSelect.OType O0000300",
// "OrvelObjectSelect.Show"); Show takes the next queued answer, and with none
// left returns "" with both options 0 (cancelled).
class TestObjectSelect : public OrvelObjectSelect {
 public:
  TestObjectSelect(std::shared_ptr<CallLog> log, std::shared_ptr<PickerAnswers> answers);

  // What the module set, for tests.
  const std::string& ColumnCaption() const { return columnCaption_; }
  const std::string& OType() const { return otype_; }
  bool MultiSelect() const { return multiSelect_; }
  int ShowCount() const { return showCount_; }

  // OrvelObjectSelect
  void SetColumnCaption(const std::string& caption) override;
  void SetOType(const std::string& otype) override;
  void SetMultiSelect(bool multiSelect) override;
  uint8_t SearchOption1() override { return result_.option1; }
  uint8_t SearchOption2() override { return result_.option2; }
  std::string Show() override;

 private:
  std::shared_ptr<CallLog> log_;
  std::shared_ptr<PickerAnswers> answers_;
  std::string columnCaption_;
  std::string otype_;
  bool multiSelect_ = false;
  PickerAnswers::Search result_;
  int showCount_ = 0;
};

}  // namespace orvel
