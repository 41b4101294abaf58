/** pn10 set: what it stores, what it refuses, and that the model on the disk is whole whatever happens. */
#include "host/run.h"

namespace {

using namespace pn10::test;

/** A row of three pipes in metres, and a customer beside it. */
class Set : public testing::Test {
 protected:
  Set() {
    EXPECT_EQ(shell("mkdir net", dir.path("")).code, 0);
    dir.write("net/nodes.csv", "id,x,y\nA,0,0\nB,100,0\nC,200,0\nD,300,0\n");
    dir.write("net/links.csv", "id,from,to,diameter\n1,A,B,150\n2,B,C,150\n3,C,D,100\n");
    dir.write("net/customers.csv", "id,x,y,demand\nK,150,20,1\n");
    EXPECT_EQ(run({"import", dir.path("net"), base}).code, 0);
  }
  Result set(const std::string& kind, int record, const std::string& field, const std::string& value) const {
    return run({"set", base, kind, std::to_string(record), field, value});
  }
  void refuses(const Result& r, const std::string& part) const {
    EXPECT_EQ(r.code, 1);
    EXPECT_TRUE(contains(r.err, part)) << r.err;
    EXPECT_FALSE(dir.exists("n.ndt.bak")) << "no file is touched";
  }
  std::string field(const std::string& kind, int record, const std::string& name) const {
    const std::string json = run({"fields", base, kind, std::to_string(record), "--json"}).out;
    const size_t at = json.find("\"name\":\"" + name + "\",");
    const size_t from = json.find(':', at + 8 + name.size()) + 1;
    return at == std::string::npos ? "" : json.substr(from, json.find_first_of(",}", from) - from);
  }

  TempDir dir;
  std::string base = dir.path("n");
};

TEST_F(Set, the_same_number_may_be_stored_again_though_it_is_rounded) {
  EXPECT_EQ(set("node", 2, "PRESSURE", "58.4").code, 0);
  EXPECT_EQ(set("node", 2, "PRESSURE", "58.4").code, 0);
  EXPECT_EQ(field("node", 2, "PRESSURE"), "58.4");
  EXPECT_EQ(set("node", 2, "PRESSURE", "-3").code, 0) << "a dash before a number begins no option";
  EXPECT_EQ(field("node", 2, "PRESSURE"), "-3");
}

TEST_F(Set, texts_that_would_be_cut_or_lose_letters_are_refused) {
  refuses(set("node", 2, "NODENAME", std::string(41, 'n')), "it would be '" + std::string(40, 'n') + "'");
  EXPECT_EQ(set("node", 2, "NODENAME", "\xCE\xA9mega").code, 2);
  EXPECT_EQ(set("node", 2, "NODENAME", std::string(40, 'n')).code, 0);
  EXPECT_EQ(set("node", 2, "NODENAME",
                "Gr\xC3\xB6\xC3\x9F"
                "e \xE2\x82\xAC")
                .code,
            0);
  EXPECT_EQ(field("node", 2, "NODENAME"),
            "\"Gr\xC3\xB6\xC3\x9F"
            "e \xE2\x82\xAC\"");
  EXPECT_EQ(run({"set", base, "node", "2", "NODENAME", "-x"}).code, 2);
  EXPECT_EQ(run({"set", base, "--", "node", "2", "NODENAME", "-x"}).code, 0);
  EXPECT_EQ(field("node", 2, "NODENAME"), "\"-x\"");
}

TEST_F(Set, numbers_that_do_not_fit_are_refused_with_what_they_would_become) {
  refuses(set("pipe", 1, "STATUS", "300"), "it would be 44");
  refuses(set("pipe", 1, "LABEL_ON", "1.5"), "it would be 1");
  for (const char* value : {"nan", "inf", "-inf", "1e999", "0x10", "+-5", ""}) {
    EXPECT_EQ(run({"set", base, "--", "node", "1", "X_COORD", value}).code, 2) << value;
  }
}

TEST_F(Set, what_ties_records_together_or_is_not_on_file_is_refused) {
  refuses(set("pipe", 1, "COUNT", "1"), "ties records together");
  refuses(set("pipe", 1, "ID", "2"), "ties records together");
  refuses(set("customer", 1, "TABLE_COUNT", "0"), "ties records together");
  refuses(set("pipe", 1, "HILITE_DRAWN", "1"), "do not keep it");
  refuses(set("node", 2, "REC_STATUS", "-1"), "do not keep it");  // a pipe uses it
}

TEST_F(Set, a_reference_must_be_there) {
  for (const char* node : {"0", "5", "-1", "1.5", "99999999999"}) {
    const Result r = set("pipe", 3, "FROM_NODE", node);
    EXPECT_EQ(r.code, 1) << node;
    EXPECT_TRUE(contains(r.err, "there is no node")) << r.err;
  }
  refuses(set("customer", 1, "PIPE_REC", "4"), "there is no pipe 4");
  EXPECT_EQ(set("customer", 1, "PIPE_REC", "3").code, 0);
  EXPECT_EQ(set("pipe", 3, "FROM_NODE", "1").code, 0);
  EXPECT_EQ(field("pipe", 3, "FROM_NAME"), "\"A\"");
}

TEST_F(Set, a_deleted_pipe_takes_its_end_along_and_the_new_numbers_are_told) {
  const Result r = set("pipe", 1, "REC_STATUS", "-1");
  EXPECT_EQ(r.code, 0) << r.err;
  EXPECT_TRUE(contains(r.out, "are gone: 2;")) << r.out;  // pipe 1 and node A
  EXPECT_EQ(field("node", 1, "NODENAME"), "\"B\"");
  EXPECT_EQ(field("customer", 1, "PIPE_REC"), "1");
}

TEST_F(Set, references_of_nodes_stay_and_follow_a_new_name) {
  std::string row = "B";
  row.resize(40);
  row += "behind the school";
  row.resize(296);
  row += "school";
  row.resize(336);
  dir.write("n.rdx", row);
  EXPECT_EQ(set("node", 2, "HAS_RDX", "1").code, 0);
  EXPECT_EQ(dir.read("n.rdx").substr(0, 336), row);
  EXPECT_EQ(set("node", 2, "NODENAME", "School St").code, 0);
  EXPECT_EQ(dir.read("n.rdx").substr(0, 10), std::string("School St\0", 10));
  EXPECT_TRUE(contains(dir.read("n.rdx"), "behind the school"));
}

TEST_F(Set, a_cut_file_is_told_and_not_saved_over) {
  dir.write("n.pdt", dir.read("n.pdt").substr(0, 300));
  const Result info = run({"info", base});
  EXPECT_EQ(info.code, 0);
  EXPECT_TRUE(contains(info.err, "n.pdt ends within a record")) << info.err;
  refuses(set("node", 2, "PRESSURE", "1"), "is not saved");
}

TEST_F(Set, a_full_disk_leaves_the_model_as_it_was) {
  const std::string before = dir.read("n.pdt");
  const Result r = shell("trap '' XFSZ; ulimit -f 0; pn10 set n node 2 PRESSURE 7 2>/dev/null", dir.path(""));
  EXPECT_EQ(r.code, 1);
  EXPECT_EQ(dir.read("n.pdt"), before);
  EXPECT_FALSE(dir.exists("n.pdt.bak"));
  EXPECT_FALSE(dir.exists("n.part"));
  EXPECT_EQ(set("node", 2, "PRESSURE", "7").code, 0);
}

TEST_F(Set, the_name_of_a_file_of_the_model_means_the_model) {
  EXPECT_EQ(run({"set", base + ".ndt", "node", "2", "PRESSURE", "7"}).code, 0);
  EXPECT_EQ(field("node", 2, "PRESSURE"), "7");
  EXPECT_EQ(run({"info", base + ".pdt"}).code, 0);
  EXPECT_EQ(run({"info", base + ".xyz"}).code, 1);
}

}  // namespace
