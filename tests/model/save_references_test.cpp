/** SavePipe: the reference rows of marked nodes. */
#include "model/saved.h"
#include "model/tables.h"

namespace pn10::test {
namespace {

std::string reference(std::string_view key, std::string_view longText = "", std::string_view shortText = "") {
  return Bytes().text(key, 40).text(longText, 256).text(shortText, 40).str();
}

TEST_F(SaveTest, references_of_marked_nodes_are_written_in_the_order_of_the_nodes) {
  addNodes(3);
  model.ndt[1].HAS_RDX = model.ndt[3].HAS_RDX = 1;
  PutRdx(1, "N1 ", "long 1", "s1");
  PutRdx(2, "N2", "long 2", "s2");
  PutRdx(3, "N3", "long 3", "s3");
  addPipe(3, 2);
  addPipe(2, 1);
  save(3);
  EXPECT_EQ(file(".rdx"),
            reference("N3", "long 3", "s3") + std::string("N1\0", 3) + reference("N1 ", "long 1", "s1").substr(3));
}

TEST_F(SaveTest, a_row_follows_again_while_its_node_was_the_last_one_written) {
  addNodes(2);
  model.ndt[2].HAS_RDX = 1;
  PutRdx(1, "N2", "l", "s");
  addPipe(1, 2);
  addPipe(2, 1);  // both ends are on file: node 2 is still the one staged
  save(1);
  EXPECT_EQ(file(".rdx"), reference("N2", "l", "s") + reference("N2", "l", "s") + reference("N2", "l", "s"));
}

TEST_F(SaveTest, a_marked_node_without_a_row_in_the_count_writes_no_row) {
  addNodes(2);
  model.ndt[1].HAS_RDX = model.ndt[2].HAS_RDX = 1;
  PutRdx(1, "N2", "l", "s");
  PutRdx(2, "N1", "l", "s");
  addPipe(1, 2);
  save(1);
  EXPECT_EQ(file(".rdx"), reference("N2", "l", "s"));
  save(0);
  EXPECT_EQ(file(".rdx"), "");
  EXPECT_EQ(save(1000000), 1);
}

TEST_F(SaveTest, without_a_marked_node_the_reference_file_is_left_alone) {
  addNodes(2);
  addPipe(1, 2);
  dir.write("model.rdx", "old");
  save(10);
  EXPECT_EQ(file(".rdx"), "old");
  EXPECT_FALSE(dir.exists("model.rdx.bak"));
}

}  // namespace
}  // namespace pn10::test
