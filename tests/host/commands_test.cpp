/** The subcommands that look at a model, with good words and bad ones. */
#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "host/run.h"

namespace {

using namespace pn10::test;

/** A town of 300 pipes, made once for all tests that only read it. */
class Town : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    dir = new TempDir;
    EXPECT_EQ(run({"sample", dir->path("t"), "--pipes", "300"}).code, 0);
  }
  static void TearDownTestSuite() { delete dir; }
  static std::string base() { return dir->path("t/town"); }
  static TempDir* dir;
};
TempDir* Town::dir = nullptr;

using Info = Town;
using Fields = Town;
using Find = Town;
using Render = Town;
using Trace = Town;

void expectUsage(const Result& r, const std::string& part) {
  EXPECT_EQ(r.code, 2);
  EXPECT_TRUE(contains(r.err, part)) << r.err;
  EXPECT_TRUE(contains(r.err, "--help")) << r.err;
}

void expectFailure(const Result& r, const std::string& part) {
  EXPECT_EQ(r.code, 1);
  EXPECT_TRUE(contains(r.err, part)) << r.err;
}

std::string nameOf(const std::string& base, int record) {
  const std::string json = run({"fields", base, "node", std::to_string(record), "--json"}).out;
  const std::string key = "\"name\":\"NODENAME\",\"text\":\"";
  const size_t at = json.find(key) + key.size();
  return json.substr(at, json.find('"', at) - at);
}

TEST(Pn10, no_words_show_the_commands_and_count_as_wrong_use) {
  const Result r = run({});
  EXPECT_EQ(r.code, 2);
  EXPECT_TRUE(contains(r.out, "Exit codes: 0 done, 1 failed, 2 wrong words"));
}

TEST(Pn10, wrong_words_end_with_2_and_name_the_word) {
  expectUsage(run({"paint"}), "'paint'");
  expectUsage(run({"info"}), "too few");
  expectUsage(run({"info", "a", "b"}), "too many arguments: b");
  expectUsage(run({"info", "a", "--colour"}), "--colour");
  expectUsage(run({"info", "a", "--json=1"}), "takes no value");
  expectUsage(run({"sample", "a", "--pipes"}), "--pipes needs N");
}

TEST(Pn10, help_is_there_under_every_name) {
  const std::string text = run({"find", "--help"}).out;
  EXPECT_TRUE(contains(text, "pn10 find BASE"));
  for (const std::vector<std::string>& words :
       {std::vector<std::string>{"find", "-h"}, {"help", "find"}, {"find", "a", "b", "--help"}}) {
    const Result r = run(words);
    EXPECT_EQ(r.code, 0);
    EXPECT_EQ(r.out, text);
  }
  EXPECT_EQ(run({"help", "paint"}).code, 2);
  expectUsage(run({"info", "-x"}), "unknown option -x");
}

TEST(Pn10, every_file_command_fails_on_a_model_that_is_not_there_and_names_its_file) {
  for (const std::string words : {"info M", "fields M node 1", "set M node 1 PRESSURE 1", "find M --node a",
                                  "render M -o x.png", "trace M --type upstream --from a"}) {
    expectFailure(shell("pn10 " + words, "/tmp"), "M.ndt");
  }
}

TEST_F(Info, json_counts_what_the_sample_said) {
  const Result r = run({"info", base(), "--json"});
  EXPECT_EQ(r.code, 0);
  EXPECT_EQ(numberBehind(r.out, "\"pipes\":{\"live\":") +
                numberBehind(r.out.substr(r.out.find("\"pipes\":{")), "\"deleted\":"),
            300);
  EXPECT_TRUE(contains(r.out, "\"length\":\"Feet\"")) << r.out;
  EXPECT_TRUE(contains(run({"info", base()}).out, "units: length Feet, pressure psig, flow cfh, diameter Inches"));
}

TEST_F(Info, a_header_of_another_program_is_named_with_its_cause) {
  const TempDir copy;
  EXPECT_EQ(shell("cp " + dir->path("t") + "/* .", copy.path("")).code, 0);
  copy.write("town.hdr", "SOMETHING ELSE\n");
  expectFailure(run({"info", copy.path("town")}), "town.hdr: is no header file of a model");
  EXPECT_EQ(shell("rm town.hdr", copy.path("")).code, 0);
  EXPECT_EQ(run({"info", copy.path("town")}).code, 0); /* a model without a header is whole */
  EXPECT_EQ(shell("rm town.pdt", copy.path("")).code, 0);
  expectFailure(run({"info", copy.path("town")}), "town.pdt: can't be opened");
}

TEST_F(Fields, every_kind_reads_with_names_and_units) {
  const Result node = run({"fields", base(), "node", "1"}), pipe = run({"fields", base(), "pipe", "1", "--json"});
  EXPECT_EQ(node.code, 0);
  EXPECT_TRUE(contains(node.out, "450  psig")) << node.out; /* the supply */
  EXPECT_TRUE(contains(pipe.out, "\"number\":9,\"name\":\"LENGTH\"")) << pipe.out;
  EXPECT_EQ(run({"fields", base(), "customer", "1"}).code, 0);
}

TEST_F(Fields, wrong_kinds_and_records_are_told_apart) {
  expectUsage(run({"fields", base(), "valve", "1"}), "'valve'");
  expectUsage(run({"fields", base(), "node", "one"}), "'one'");
  expectFailure(run({"info", std::string(5000, 'a')}), "aaa");  // the system refuses to look for such a name
  expectFailure(run({"fields", base(), "pipe", "0"}), "there is no pipe 0");
  expectFailure(run({"fields", base(), "pipe", "301"}), "the last one is 300");
}

TEST(SetTown, stores_a_field_saves_and_keeps_the_files_before) {
  const TempDir dir;
  EXPECT_EQ(run({"sample", dir.path("t"), "--pipes", "200"}).code, 0);
  const std::string base = dir.path("t/town"), before = dir.read("t/town.ndt");
  EXPECT_EQ(run({"set", base, "node", "2", "PRESSURE", "58.5"}).code, 0);
  EXPECT_EQ(dir.read("t/town.ndt.bak"), before);
  EXPECT_TRUE(contains(run({"fields", base, "node", "2", "--json"}).out, "\"name\":\"PRESSURE\",\"value\":58.5"));
  EXPECT_EQ(run({"set", base, "customer", "3", "422", "12 Nowhere St"}).code, 0);
  EXPECT_TRUE(contains(run({"fields", base, "customer", "3"}).out, "\"12 Nowhere St\""));
}

TEST(SetTown, refuses_what_can_not_be_stored_and_leaves_the_files_alone) {
  const TempDir dir;
  EXPECT_EQ(run({"sample", dir.path("t"), "--pipes", "200"}).code, 0);
  const std::string base = dir.path("t/town"), before = dir.read("t/town.ndt");
  expectUsage(run({"set", base, "node", "2", "PRESURE", "1"}), "'PRESURE'");
  expectUsage(run({"set", base, "node", "2", "PRESSURE", "much"}), "'much'");
  expectFailure(run({"set", base, "node", "2", "BALANCE", "3"}), "BALANCE can't be stored");
  expectFailure(run({"set", base, "node", "100000", "PRESSURE", "3"}), "there is no node 100000");
  EXPECT_EQ(dir.read("t/town.ndt"), before);
  EXPECT_FALSE(dir.exists("t/town.ndt.bak"));
}

TEST_F(Find, finds_by_name_by_id_and_by_place) {
  const std::string name = nameOf(base(), 20);
  EXPECT_TRUE(contains(run({"find", base(), "--node", name, "--json"}).out, "\"record\":20"));
  EXPECT_TRUE(contains(run({"find", base(), "--pipe", "17", "--json"}).out, "\"id\":17"));
  const std::string json = run({"fields", base(), "node", "20", "--json"}).out;
  const std::string x = std::to_string(numberBehind(json, "\"X_COORD\",\"value\":")),
                    y = std::to_string(numberBehind(json, "\"Y_COORD\",\"value\":"));
  EXPECT_TRUE(contains(run({"find", base(), "--at", x + "," + y, "--json"}).out, "\"record\":20"));
}

TEST_F(Find, nothing_found_is_a_failure_and_no_question_a_wrong_use) {
  EXPECT_EQ(run({"find", base(), "--node", "Nowhere St"}).code, 1);
  EXPECT_EQ(run({"find", base(), "--at", "0,0"}).code, 1);
  expectUsage(run({"find", base()}), "--node");
  expectUsage(run({"find", base(), "--at", "3"}), "2 numbers");
}

TEST_F(Find, the_nearest_node_wins_whatever_its_number) {
  const std::string json = run({"fields", base(), "node", "20", "--json"}).out;
  const double x = numberBehind(json, "\"X_COORD\",\"value\":"), y = numberBehind(json, "\"Y_COORD\",\"value\":");
  const std::string at = std::to_string(x + 1) + "," + std::to_string(y);
  const std::string found = run({"find", base(), "--at", at, "--radius", "1000000", "--json"}).out;
  EXPECT_TRUE(contains(found, "\"record\":20")) << found;
  EXPECT_NEAR(numberBehind(found, "\"distance\":"), 1, 1e-3);
  expectUsage(run({"find", base(), "--at", at, "--radius", "-1"}), "--radius wants 0");
  EXPECT_EQ(run({"find", base(), "--pipe", "1e99"}).code, 1);
}

TEST(FindAt, a_pipe_is_found_on_its_way_and_a_node_at_its_place) {
  const TempDir dir;
  EXPECT_EQ(shell("mkdir net", dir.path("")).code, 0);
  dir.write("net/nodes.csv", "id,x,y\nA,0,0\nB,100,0\n");
  dir.write("net/links.csv", "id,from,to,diameter\n1,A,B,150\n");
  EXPECT_EQ(run({"import", dir.path("net"), dir.path("n")}).code, 0);
  const struct {
    const char *at, *kind;
    double distance;
  } rows[] = {{"50,1", "pipe", 1}, {"100,0", "node", 0},         {"103,4", "node", 5},
              {"94,1", "pipe", 1}, {"97,1", "node", 3.16227766}, {"-3,0", "node", 3}};
  for (const auto& row : rows) {
    const std::string found = run({"find", dir.path("n"), "--at", row.at, "--radius", "100", "--json"}).out;
    EXPECT_TRUE(contains(found, std::string("\"kind\":\"") + row.kind)) << row.at << found;
    EXPECT_NEAR(numberBehind(found, "\"distance\":"), row.distance, 1e-4) << row.at;
  }
}

TEST(FindAt, a_node_without_a_place_is_near_nothing) {
  const TempDir dir;
  EXPECT_EQ(shell("mkdir net", dir.path("")).code, 0);
  dir.write("net/nodes.csv", "id,x,y\nA,0,0\nB,100,0\n");
  dir.write("net/links.csv", "id,from,to,diameter\n1,A,B,150\n");
  EXPECT_EQ(run({"import", dir.path("net"), dir.path("n")}).code, 0);
  const std::string nodes = dir.read("n.ndt"), noNumber = Bytes().f64(std::nan("")).str();
  dir.write("n.ndt", nodes.substr(0, 220 + 130) + noNumber + nodes.substr(220 + 138));  // X_COORD of the second node
  const std::string found = run({"find", dir.path("n"), "--at", "3,4", "--radius", "10", "--json"}).out;
  EXPECT_TRUE(contains(found, "\"kind\":\"node\"") && contains(found, "\"record\":1")) << found;
  EXPECT_NEAR(numberBehind(found, "\"distance\":"), 5, 1e-4);
}

TEST_F(Info, speaks_in_the_units_of_the_model) {
  const TempDir dir;
  EXPECT_EQ(shell("mkdir net", dir.path("")).code, 0);
  dir.write("net/nodes.csv", "id,x,y\nA,0,0\nB,1500,0\n");
  dir.write("net/links.csv", "id,from,to,diameter\n1,A,B,0.0001\n");
  EXPECT_EQ(run({"import", dir.path("net"), dir.path("n")}).code, 0);
  const std::string out = run({"info", dir.path("n")}).out;
  EXPECT_TRUE(contains(out, "length 1500 Meters (1.50 km)\n")) << out;
  EXPECT_TRUE(contains(out, "  0.0001 mm ")) << out;
  EXPECT_TRUE(contains(out, "1 pipe ")) << out;
  EXPECT_TRUE(contains(out, "extent: 0.00, 0.00 to 1500.00, 0.00\n")) << out;
}

TEST(Json, is_utf_8_whatever_a_text_comes_from) {
  const TempDir dir;
  const std::string town =
      "St\xC3\xA4"
      "dte";  // code page 1252 has an E4 there
  EXPECT_EQ(shell("mkdir " + town, dir.path("")).code, 0);
  dir.write(town + "/nodes.csv", "id,x,y\n\xC3\x84,0,0\nB,100,0\n");
  dir.write(town + "/links.csv", "id,from,to,diameter\n1,\xC3\x84,B,150\n");
  EXPECT_EQ(run({"import", dir.path(town), dir.path(town + "/n")}).code, 0);
  const std::string base = dir.path(town + "/n");
  const std::string info = run({"info", base, "--json"}).out;
  EXPECT_TRUE(contains(info, "\"model\":\"" + base + "\"")) << info;
  EXPECT_TRUE(contains(info, "\"title\":\"" + town + "\"")) << info;
  EXPECT_TRUE(contains(run({"find", base, "--node", "B", "--json"}).out, "\"name\":\"B\""));
  EXPECT_TRUE(contains(run({"find", base, "--node", "\xC3\x84", "--json"}).out, "\"name\":\"\xC3\x84\""));
  EXPECT_TRUE(contains(run({"fields", base, "node", "1", "--json"}).out, "\"text\":\"\xC3\x84\""));
}

TEST_F(Info, causes_are_those_of_the_file) {
  const TempDir copy;
  EXPECT_EQ(shell("cp " + dir->path("t") + "/* .", copy.path("")).code, 0);
  const std::string nodes = copy.read("town.ndt");
  copy.write("town.ndt", nodes.substr(0, 220));
  expectFailure(run({"info", copy.path("town")}), "town.pdt: a pipe names a node that is not there");
  copy.write("town.ndt", nodes);
  copy.write("town.plut", "");
  expectFailure(run({"info", copy.path("town")}), "town.plut: holds no record");
}

TEST_F(Render, writes_each_kind_of_picture) {
  const TempDir out;
  const struct { const char *file, *begin; } kinds[] = {{"a.png", "\x89PNG"}, {"a.pdf", "%PDF"}, {"a.svg", "<svg"}};
  for (const auto& kind : kinds) {
    EXPECT_EQ(run({"render", base(), "-o", out.path(kind.file), "--size", "300,200"}).code, 0);
    EXPECT_EQ(out.read(kind.file).substr(0, 4), std::string(kind.begin).substr(0, 4));
  }
}

TEST_F(Render, the_same_map_has_the_same_bytes) {
  const TempDir out;
  for (const char* file : {"a.png", "b.png"})
    run({"render", base(), "-o", out.path(file), "--size", "400,300", "--view", "iso"});
  EXPECT_FALSE(out.read("a.png").empty());
  EXPECT_EQ(out.read("a.png"), out.read("b.png"));
}

TEST_F(Render, pages_on_a_system_without_them_are_refused_by_a_code_of_their_own) {
  // A sanitizer wants to be the first library, unless told.
  const std::string pn10 = "ASAN_OPTIONS=\"$ASAN_OPTIONS:verify_asan_link_order=0\" LD_PRELOAD=" PN10_NO_PAGES " pn10 ";
  const TempDir out;
  for (const char* file : {"a.pdf", "a.svg"}) {
    const Result r = shell(pn10 + "render " + base() + " -o " + file, out.path(""));
    EXPECT_EQ(r.code, 3);
    EXPECT_EQ(r.err, std::string("pn10 render: ") + file + ": on this system pictures are written as .png only\n");
    EXPECT_FALSE(out.exists(file));
  }
  EXPECT_EQ(shell(pn10 + "render " + base() + " -o a.png", out.path("")).code, 0);
}

TEST_F(Render, bad_targets_and_options_are_refused) {
  expectUsage(run({"render", base()}), "-o");
  expectUsage(run({"render", base(), "-o", "a.png", "--size", "300"}), "--size");
  expectUsage(run({"render", base(), "-o", "a.png", "--window", "1,2,3"}), "--window");
  expectUsage(run({"render", base(), "-o", "a.png", "--view", "fish"}), "--view");
  const TempDir out;
  expectFailure(run({"render", base(), "-o", out.path("no/a.png")}), "no/a.png: can't be written");
  EXPECT_NE(run({"render", base(), "-o", "a.gif"}).code, 0);
}

TEST_F(Render, the_geographic_view_needs_longitudes_and_latitudes) {
  const TempDir out;
  expectFailure(run({"render", base(), "-o", out.path("a.png"), "--view", "geo"}), "--view geo");
  EXPECT_TRUE(filesIn(out.path("")).empty());
}

TEST(RenderFar, a_pipe_to_the_end_of_the_world_is_painted_in_time) {
  const TempDir dir;
  EXPECT_EQ(shell("mkdir net", dir.path("")).code, 0);
  dir.write("net/nodes.csv", "id,x,y\nA,0,0\nB,100,0\nC,1e29,0\n");
  dir.write("net/links.csv", "id,from,to,diameter\n1,A,B,150\n2,C,B,150\n");
  EXPECT_EQ(run({"import", dir.path("net"), dir.path("n")}).code, 0);
  const std::string render = "timeout 60 " PN10_PROGRAM " render " + dir.path("n") + " --window 0,-50,100,50 -o ";
  EXPECT_EQ(shell(render + dir.path("n.png"), "").code, 0);
}

TEST(RenderDegrees, the_full_extent_fits_with_its_margin_though_latitudes_are_stretched) {
  const TempDir dir;
  dir.write("nodes.csv", "id,kind,x,y\na,junction,10,60\nb,junction,11,61\nc,junction,10,61\n");
  dir.write("links.csv", "id,kind,from,to,length,diameter\np,pipe,a,c,1,100\nq,pipe,c,b,1,100\n");
  ASSERT_EQ(run({"import", dir.path(""), dir.path("m"), "--units", "metric-degrees"}).code, 0);
  ASSERT_EQ(run({"render", dir.path("m"), "-o", dir.path("m.svg"), "--size", "400,400"}).code, 0);
  // 60 to 61 degrees are ln(tan 75.5 / tan 75) = 0.035446 radians = 2.03091 degrees on the tiles, and 1.06 times that
  // is the page of 2400: 0.03 / 1.06 * 2400 = 67.9 above and below, and a degree of longitude is 1114.8 wide.
  const std::string picture = dir.read("m.svg");
  EXPECT_TRUE(contains(picture, "M642 2332L642 67")) << picture;
  EXPECT_TRUE(contains(picture, "M642 67L1757 67")) << picture;
}

TEST_F(Render, numbers_out_of_range_are_refused) {
  const TempDir out;
  for (const char* option : {"--lines=nan", "--lines=0", "--symbols=-1", "--symbols=1e9", "--text=0", "--text=1e9",
                             "--node-symbol=2.5", "--node-symbol=-3", "--decimals=2.5", "--decimals=10", "--dpi=inf"}) {
    const Result r = run({"render", base(), "-o", out.path("never.png"), option});
    expectUsage(r, std::string(option).substr(0, std::string(option).find('=')) + " wants");
  }
  expectUsage(run({"render", base(), "-o", "a.gif"}), "'a.gif'");
}

TEST_F(Render, a_picture_that_can_not_be_written_leaves_the_one_before) {
  const TempDir out;
  for (const char* file : {"a.PNG", "a.pdf", "a.svg"}) {
    out.write(file, "before");
    const Result r = shell("trap '' XFSZ; ulimit -f 0; pn10 render " + base() + " -o " + file + " --size 300,200 2>&1",
                           out.path(""));
    EXPECT_EQ(r.code, 1) << file;
    EXPECT_EQ(out.read(file), "before");
    EXPECT_EQ(run({"render", base(), "-o", out.path(file), "--size", "300,200"}).code, 0);
    EXPECT_NE(out.read(file), "before");
  }
  EXPECT_EQ(filesIn(out.path("")).size(), 3u);
}

TEST_F(Trace, follows_the_network_and_paints_it) {
  const TempDir out;
  const Result r =
      run({"trace", base(), "--type", "downstream", "--from", nameOf(base(), 1), "-o", out.path("t.png"), "--json"});
  EXPECT_EQ(r.code, 0) << r.err;
  EXPECT_EQ(out.read("t.png").substr(0, 4), "\x89PNG");
}

TEST_F(Trace, from_a_pipe_goes_the_way_of_its_gas) {
  const std::string down = run({"trace", base(), "--type", "downstream", "--from-pipe", "30", "--json"}).out,
                    up = run({"trace", base(), "--type", "upstream", "--from-pipe", "30", "--json"}).out,
                    all = run({"trace", base(), "--type", "connected", "--from-pipe", "30", "--json"}).out;
  EXPECT_TRUE(contains(down, "\"pipes\":[30")) << down;
  EXPECT_TRUE(contains(up, "\"pipes\":[30")) << up;
  // A pipe can't lie on both sides of another one, unless it is that pipe.
  const auto pipesOf = [](const std::string& json) {
    std::vector<int> pipes;
    for (size_t at = json.find("\"pipes\":[") + 8; at < json.size() && json[at] != ']';
         at = json.find_first_of(",]", at + 1))
      pipes.push_back(std::atoi(json.c_str() + at + 1));
    return pipes;
  };
  const std::vector<int> below = pipesOf(down), above = pipesOf(up);
  for (const int p : below) EXPECT_EQ(std::count(above.begin(), above.end(), p), p == 30) << p;
  EXPECT_EQ(numberBehind(down, "\"traced\":"), static_cast<double>(below.size()));
  EXPECT_GE(pipesOf(all).size(), below.size() + above.size() - 1);
  expectUsage(run({"trace", base(), "--type", "facility", "--from", "a"}), "--from-pipe");
  expectUsage(run({"trace", base(), "--type", "upstream", "--from-pipe", "1e99"}), "--from-pipe wants");
}

TEST_F(Trace, wrong_types_and_places_are_refused) {
  expectUsage(run({"trace", base(), "--type", "sideways", "--from", "a"}), "upstream");
  expectFailure(run({"trace", base(), "--type", "upstream", "--from", "Nowhere St"}), "'Nowhere St'");
}

}  // namespace
