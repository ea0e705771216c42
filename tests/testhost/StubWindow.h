#pragma once

#include <memory>
#include <string>
#include <vector>

#include "orvel/OrvelWindow.h"
#include "support/StubObjectUIO.h"

namespace orvel {

// A window that records what the host did to it and answers QueryRemove
// with `keepObject`.
class StubWindow : public OrvelWindow {
 public:
  explicit StubWindow(std::shared_ptr<orvel::OrvelObjectUIO> object = nullptr)
      : object_(std::move(object)) {}

  static std::shared_ptr<StubWindow> ForRecord(const std::string& oidr) {
    return std::make_shared<StubWindow>(std::make_shared<StubObjectUIO>(oidr));
  }

  std::shared_ptr<orvel::OrvelObjectUIO> OrvelObjectUIO() const override { return object_; }
  void SetOrvelObjectUIO(std::shared_ptr<orvel::OrvelObjectUIO> object) override {
    object_ = std::move(object);
  }
  void Show() override { events.push_back("Show"); }
  void QueryRemove(bool& cancel) override {
    events.push_back("QueryRemove");
    cancel = keepObject;
  }
  void Unload() override { events.push_back("Unload"); }

  bool keepObject = false;
  std::vector<std::string> events;

 private:
  std::shared_ptr<orvel::OrvelObjectUIO> object_;
};

}  // namespace orvel
