#pragma once

#include <memory>
#include <string>

#include "orvel/OrvelGroupSelect.h"
#include "testhost/PickerAnswers.h"

namespace orvel {

class CallLog;

// The group picker of the test host. Property writes and Show are logged in
// the Host channel ("OrvelGroupSelect.Caption Pažymėkite norimą grupę",
// "OrvelGroupSelect.Show"); Show takes the next queued answer, and with none
// left the results are empty (cancelled).
class TestGroupSelect : public OrvelGroupSelect {
 public:
  TestGroupSelect(std::shared_ptr<CallLog> log, std::shared_ptr<PickerAnswers> answers);

  // What the module set, for tests.
  const std::string& Caption() const { return caption_; }
  const std::string& RootOType() const { return rootOType_; }
  const std::string& SelectKind() const { return selectKind_; }
  const std::string& OType() const { return otype_; }
  const std::string& ExcludeTypes() const { return excludeTypes_; }
  int ShowCount() const { return showCount_; }

  // OrvelGroupSelect
  std::string ResultName() override { return result_.resultName; }
  void SetCaption(const std::string& caption) override;
  void Show() override;
  void SetRootOType(const std::string& otype) override;
  void SetSelectKind(const std::string& kind) override;
  std::string ResultOIDR() override { return result_.resultOIDR; }
  std::string ResultOType() override { return result_.resultOType; }
  void SetOType(const std::string& otype) override;
  void SetExcludeTypes(const std::string& types) override;

 private:
  void LogProperty(const char* property, const std::string& value);

  std::shared_ptr<CallLog> log_;
  std::shared_ptr<PickerAnswers> answers_;
  std::string caption_;
  std::string rootOType_;
  std::string selectKind_;
  std::string otype_;
  std::string excludeTypes_;
  PickerAnswers::Group result_;
  int showCount_ = 0;
};

}  // namespace orvel
