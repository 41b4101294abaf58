/** Folders of separated values: columns by name, service lines, and what is said about wrong lines. */
#include <filesystem>

#include "host/run.h"

namespace {

using namespace pn10::test;

const char kNodes[] =
    "id,kind,x,y,z,name\nS,source,0,0,5,Station\nA,junction,100,0,6,\nB,junction,200,0,,\nH,house,100,30,,\nZ,,900,900,"
    ",\n";
const char kLinks[] =
    "id,kind,from,to,length,diameter,status,type_name,vertices\n"
    "1,pipe,S,A,,100,Open,,50 10;75 10\n2,pipe,A,B,120.5,80.5,Closed,63 PE,\n"
    "3,service_line,A,H,30,25,,,105 10;105 30\n4,valve,A,B,,,,,\n";

struct Folder : TempDir {
  Folder(const std::string& nodes, const std::string& links, const std::string& customers = "") {
    std::filesystem::create_directory(path("net"));
    write("net/nodes.csv", nodes);
    write("net/links.csv", links);
    if (!customers.empty()) write("net/customers.csv", customers);
  }
  Result import(const std::vector<std::string>& more = {}) const {
    std::vector<std::string> words = {"import", path("net"), path("m/n")};
    words.insert(words.end(), more.begin(), more.end());
    return run(words);
  }
  std::string fields(const char* kind, int record) const {
    return run({"fields", path("m/n"), kind, std::to_string(record), "--json"}).out;
  }
};

TEST(ImportCsv, kinds_names_and_sizes_arrive) {
  const Folder f(kNodes, kLinks);
  const Result r = f.import();
  ASSERT_EQ(r.code, 0) << r.err;
  EXPECT_TRUE(contains(r.out, "3 nodes, 3 pipes and devices, 1 customers")) << r.out;
  EXPECT_TRUE(contains(r.out, "units: length Meters, diameter mm, flow M3/HR, pressure Bar")) << r.out;
  EXPECT_TRUE(contains(r.out, "1 nodes that no link names were left out")) << r.out;
  const std::string p1 = f.fields("pipe", 1), p2 = f.fields("pipe", 2);
  EXPECT_TRUE(contains(f.fields("node", 1), "\"text\":\"Station\""));
  EXPECT_TRUE(contains(p1, "\"SIZE_TYPE\",\"text\":\"100 mm\"") && contains(p2, "\"SIZE_TYPE\",\"text\":\"63 PE\""))
      << p2;
  EXPECT_NEAR(numberBehind(p2, "\"INSIDE_D\",\"value\":"), 80.5, 1e-4);
  EXPECT_NE(numberBehind(p2, "\"STATUS\",\"value\":"), 0);
  EXPECT_EQ(numberBehind(p2, "\"LENGTH\",\"value\":"), 120.5);
  // Measured: (50, 10), (25, 0) and (25, 10), each a third higher, in metres.
  EXPECT_NEAR(numberBehind(p1, "\"LENGTH\",\"value\":"), 50.9913 + 25.0022 + 26.9279, 0.001);
  EXPECT_EQ(numberBehind(f.fields("pipe", 3), "\"HYD_TYPE\",\"value\":"), 3);
}

TEST(ImportCsv, a_service_line_becomes_a_customer_from_meter_to_tap) {
  const Folder f(kNodes, kLinks);
  ASSERT_EQ(f.import().code, 0);
  const std::string c = f.fields("customer", 1);
  EXPECT_EQ(numberBehind(c, "\"X_COORD\",\"value\":"), 100);
  EXPECT_EQ(numberBehind(c, "\"Y_COORD\",\"value\":"), 30);
  EXPECT_EQ(numberBehind(c, "\"SX_COORD\",\"value\":"), 100);
  EXPECT_EQ(numberBehind(c, "\"SY_COORD\",\"value\":"), 0);
  EXPECT_EQ(numberBehind(c, "\"PIPE_REC\",\"value\":"), 1); /* of two pipes that meet there the first */
  const Fresh fresh;
  ASSERT_EQ(ReadVtx(f.path("m/n").c_str(), 0), 4);
  EXPECT_EQ(GetVtxVal(3, VTX_Y_COORD), 30); /* the bend at the meter comes first */
  EXPECT_EQ(GetVtxVal(4, VTX_Y_COORD), 10);
}

TEST(ImportCsv, the_list_of_customers_gives_place_tap_and_demand) {
  const Folder f(kNodes, kLinks,
                 "id,x,y,service_line,tap_x,tap_y,demand,street\n\"Mill, 5\",101,31,3,99,0,4.5,Mill\n\"a \"\"b\"\" "
                 "c\",160,20,,,,1.5,\n");
  const Result r = f.import();
  ASSERT_EQ(r.code, 0) << r.err;
  EXPECT_TRUE(contains(r.out, "2 customers")) << r.out;
  const std::string first = f.fields("customer", 1), second = f.fields("customer", 2);
  EXPECT_TRUE(contains(first, "\"Mill, 5\"")) << first;
  EXPECT_TRUE(contains(second, "a \\\"b\\\" c")) << second;
  EXPECT_EQ(numberBehind(first, "\"UNIT_LOAD\",\"value\":"), 4.5);
  // The pipe from (75, 10) to (100, 0) is nearest to (99, 0): the foot is 25 * 24 - 10 * -10 = 700 of 725 along it.
  EXPECT_NEAR(numberBehind(first, "\"SX_COORD\",\"value\":"), 75 + 25 * 700 / 725.0, 1e-6);
  EXPECT_EQ(numberBehind(second, "\"PIPE_REC\",\"value\":"), 2);
  EXPECT_EQ(numberBehind(second, "\"SX_COORD\",\"value\":"), 160);
  // Half of each at the ends of their pipes: A has both halves.
  EXPECT_EQ(numberBehind(f.fields("node", 2), "\"QB_LOAD\",\"value\":"), -3);
}

TEST(ImportCsv, files_of_other_programs_read_too) {
  const Folder f("\xEF\xBB\xBFY;X;ID\r\n0,5;0;a\r\n0,5;3,5;b\r\n\r\n", "TO\tFROM\tID\tkind\nb\ta\t7\tPipe\n");
  ASSERT_EQ(f.import({"--units", "us"}).code, 0);
  const std::string node = f.fields("node", 2);
  EXPECT_EQ(numberBehind(node, "\"X_COORD\",\"value\":"), 3.5);
  EXPECT_EQ(numberBehind(node, "\"Y_COORD\",\"value\":"), 0.5);
  EXPECT_EQ(numberBehind(f.fields("pipe", 1), "\"LENGTH\",\"value\":"), 3.5);
  EXPECT_TRUE(contains(run({"info", f.path("m/n")}).out, "units: length Feet"));
}

TEST(ImportCsv, degrees_are_measured_on_the_globe) {
  const Folder f("id,x,y\na,9,51\nb,9,52\n", "id,from,to\n1,a,b\n");
  const Result r = f.import({"--units", "metric-degrees"});
  ASSERT_EQ(r.code, 0) << r.err;
  EXPECT_TRUE(contains(r.out, "coordinates degrees")) << r.out;
  // One degree of the great circle of radius 6371009 m.
  EXPECT_NEAR(numberBehind(f.fields("pipe", 1), "\"LENGTH\",\"value\":"), 111195.08, 3);
}

TEST(ImportCsv, wrong_lines_are_named_and_nothing_is_written) {
  const std::string nodes = "id,x,y\nA,0,0\nB,1,1\n", links = "id,kind,from,to,length,diameter,status,vertices\n";
  const struct {
    std::string nodes, links, customers;
    const char* complaint;
  } rows[] = {{"", links, "", "nodes.csv: is empty"},
              {"id,x\nA,0\n", links, "", "nodes.csv:1: there is no column 'y'"},
              {"id,x,y\nA,0,0\nB,1\n", links, "", "nodes.csv:3: 2 values under 3 column names"},
              {"id,x,y\nA,0,\n", links, "", "nodes.csv:2: y is missing"},
              {"id,x,y\n,0,0\n", links, "", "nodes.csv:2: id is missing"},
              {"id,x,y\nA,0,far\n", links, "", "nodes.csv:2: y is no number: 'far'"},
              {"id,x,y\nA,0,0\n\nA,0,0\n", links, "", "nodes.csv:4: node 'A' is there twice"},
              {"id,x,y\n\"A,0,0\n", links, "", "nodes.csv:2: a quoted value does not end"},
              {nodes, "id,from\n1,A\n", "", "links.csv:1: there is no column 'to'"},
              {nodes, links + "1,pipe,A,C,,,,\n", "", "links.csv:2: link '1': there is no node 'C'"},
              {nodes, links + "1,tunnel,A,B,,,,\n", "", "links.csv:2: 'tunnel' is no kind of link: pipe, main"},
              {nodes, links + "1,pipe,A,B,,,ajar,\n", "", "links.csv:2: status is 'Open' or 'Closed', not 'ajar'"},
              {nodes, links + "1,pipe,A,B,-1,,,\n", "", "links.csv:2: length is below 0"},
              {nodes, links + "1,pipe,A,B,,-1,,\n", "", "links.csv:2: diameter is below 0"},
              {nodes, links + "1,pipe,A,B,,,,5\n", "", "links.csv:2: vertices want 'x y;x y', not '5'"},
              {nodes, links + "1,pipe,A,B,,,,5 x\n", "", "links.csv:2: vertex y is no number: 'x'"},
              {nodes, links + "1,pipe,A,B,,,,\n1,pipe,A,B,,,,\n", "", "links.csv:3: link '1' is there twice"},
              {nodes, links + "1,pipe,A,B,,,,\n", "id,x,y,service_line\nC,0,0,9\n",
               "customers.csv:2: customer 'C': there is no link '9'"},
              {nodes, links + "1,pipe,A,B,,,,\n", "id,x,y,service_line\nC,0,0,1\n",
               "customers.csv:2: customer 'C': link '1' is no service line"},
              {nodes, links, "", "there is no pipe to import"}};
  for (const auto& row : rows) {
    const Folder f(row.nodes, row.links, row.customers);
    const size_t files = filesIn(f.path("")).size();
    const Result r = f.import();
    EXPECT_EQ(r.code, 1) << row.complaint;
    EXPECT_TRUE(contains(r.err, row.complaint)) << r.err;
    EXPECT_EQ(filesIn(f.path("")).size(), files) << row.complaint;
  }
}

TEST(ImportCsv, a_folder_without_the_files_and_a_path_without_anything_are_named) {
  const TempDir dir;
  const Result folder = run({"import", dir.path(""), dir.path("m/n")}),
               nothing = run({"import", dir.path("x.inp"), dir.path("m/n")});
  EXPECT_EQ(folder.code, 1);
  EXPECT_TRUE(contains(folder.err, "there is no nodes.csv")) << folder.err;
  EXPECT_EQ(nothing.code, 1);
  EXPECT_TRUE(contains(nothing.err, "x.inp: there is no such file or folder")) << nothing.err;
}

TEST(ImportCsv, a_failed_import_leaves_the_model_before_alone) {
  const Folder f(kNodes, kLinks);
  ASSERT_EQ(f.import().code, 0);
  const std::string before = f.read("m/n.pdt");
  f.write("net/links.csv", "id,from,to\n1,S,nowhere\n");
  EXPECT_EQ(f.import().code, 1);
  EXPECT_EQ(f.read("m/n.pdt"), before);
  EXPECT_FALSE(f.exists("m/n.pdt.bak"));
}

TEST(ImportCsv, long_names_are_cut_and_counted) {
  const std::string node(60, 'n'), link(30, 'l');
  const Folder f("id,x,y\n" + node + ",0,0\nB,1,1\n", "id,from,to\n" + link + "," + node + ",B\n");
  const Result r = f.import();
  EXPECT_EQ(r.code, 0) << r.err;
  EXPECT_TRUE(contains(r.out, "2 names were cut")) << r.out;
  EXPECT_TRUE(contains(f.fields("pipe", 1), "\"" + std::string(20, 'l') + "\""));
}

TEST(ImportCsv, metres_are_no_degrees) {
  const TempDir dir;
  EXPECT_EQ(shell("mkdir net", dir.path("")).code, 0);
  dir.write("net/nodes.csv", "id,x,y\nA,8.5,48.5\nB,3416652.5,5368414\n");
  dir.write("net/links.csv", "id,from,to,diameter\n1,A,B,150\n");
  const Result r = run({"import", dir.path("net"), dir.path("n"), "--units", "metric-degrees"});
  EXPECT_EQ(r.code, 1);
  EXPECT_TRUE(contains(r.err, "nodes.csv:3: node 'B': 3416652.5, 5368414 are no longitude and latitude")) << r.err;
  EXPECT_FALSE(dir.exists("n.ndt"));
}

}  // namespace
