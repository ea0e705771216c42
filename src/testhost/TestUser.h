#pragma once

#include <memory>
#include <string>

#include "orvel/OrvelUser.h"

namespace orvel {

// The signed-in user of the test host: "Jonas Jonaitis", Id "1", and a
// one-row record with field ID 1 by default; every answer settable.
class TestUser : public OrvelUser {
 public:
  TestUser();

  void SetName(std::string name) { name_ = std::move(name); }
  void SetId(std::string id) { id_ = std::move(id); }
  void SetRs(std::shared_ptr<Recordset> rs) { rs_ = std::move(rs); }

  // OrvelUser
  std::string Name() override { return name_; }
  std::string Id() override { return id_; }
  std::shared_ptr<Recordset> Rs() override { return rs_; }

 private:
  std::string name_ = "Jonas Jonaitis";
  std::string id_ = "1";
  std::shared_ptr<Recordset> rs_;
};

}  // namespace orvel
