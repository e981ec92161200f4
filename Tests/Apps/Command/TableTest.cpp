#include "Apps/Command/Table.hpp"

#include <gtest/gtest.h>

namespace orivanta::command {

TEST(Table, AlignsColumnsByDisplayWidth) {
  Table table({Alignment::left, Alignment::right, Alignment::left});
  table.add({"新宿", "1", "x"});
  table.add({"a", "100", ""});
  EXPECT_EQ(table.text(1), " 新宿    1  x\n a     100\n");
}

}  // namespace orivanta::command
