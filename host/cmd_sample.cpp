// pn10 sample: a gas distribution town that nobody lives in.
#include <cstdio>

#include "commands.h"
#include "model_files.h"
#include "output.h"
#include "sample_town.h"

namespace host {

namespace {

constexpr int64_t kFewest = 200, kMost = 4000000, kMostSeed = 9007199254740991;

Network makeTown(int64_t pipes, uint64_t seed, Progress& progress) {
  Network net;
  net.title = "Sample town of " + std::to_string(pipes) + " pipes, seed " + std::to_string(seed);
  net.facilities = {{"Transmission", 0x2020A0, 4},
                    {"Distribution high", 0x2060D0, 3},
                    {"Distribution low", 0x50A030, 2},
                    {"Services", 0xB08030, 1}};
  Plan plan(10, seed);
  Streets streets = layOut(pipes, seed, plan);
  progress.show(0.1);
  makeMains(plan, streets, net);
  progress.show(0.2);
  makeCustomers(plan, net);
  progress.show(0.3);
  makeFlows(plan, streets, net);
  progress.show(0.5);
  return net;
}

int run(const Args& args) {
  const int64_t pipes = args.wholeWithin("--pipes", 1000, kFewest, kMost);
  const auto seed = static_cast<uint64_t>(args.wholeWithin("--seed", 1, 0, kMostSeed));
  const std::string base = args.positional[0] + "/town";
  refuseToReplace(base, args);
  Progress progress("sample");
  const Network town = makeTown(pipes, seed, progress);
  saveNetwork(town, base);
  progress.show(1);
  closeModel();
  std::printf("%s: %zu nodes, %zu pipes, %zu customers\n", base.c_str(), town.nodes.size(), town.links.size(),
              town.customers.size());
  return 0;
}

}  // namespace

Command sampleCommand() {
  return {"sample",
          "DIR",
          "Writes a believable gas distribution town, the model DIR/town with its libraries.",
          "pn10 sample town --pipes 2000 --seed 7",
          {{"--pipes", "N", "records of pipes and devices, 200 to 4000000 (1000)"},
           {"--seed", "S", "another town for another whole number (1)"},
           replaceOption()},
          run};
}

}  // namespace host
