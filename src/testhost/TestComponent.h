#pragma once

#include <memory>
#include <string>

#include "orvel/OrvelComponentRegistry.h"

namespace orvel {

class CallLog;

// One right component as registration created it; remembers what it was given.
class TestComponent : public OrvelComponent {
 public:
  TestComponent(std::shared_ptr<CallLog> log, std::string otype, std::string caption,
                std::string rightKey);

  // Logs "OType <otype>".
  void SetOType(const std::string& otype) override;

  const std::string& AddedOType() const { return addedOType_; }
  const std::string& Caption() const { return caption_; }
  const std::string& RightKey() const { return rightKey_; }
  // The OType written afterwards; "" when none was.
  const std::string& OType() const { return otype_; }

 private:
  std::shared_ptr<CallLog> log_;
  std::string addedOType_;
  std::string caption_;
  std::string rightKey_;
  std::string otype_;
};

}  // namespace orvel
