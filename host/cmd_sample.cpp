// pn10 sample: a gas distribution town that nobody lives in.
#include <cstdio>

#include "commands.h"
#include "model_files.h"
#include "output.h"
#include "sample_town.h"

namespace host {

namespace {

constexpr double kFewest = 200, kMost = 4000000;

double wholeNumber(const Args& args, const char* option, double otherwise, double low, double high) {
  const double value = args.number(option, otherwise);
  if (!(value >= low && value <= high) || value != static_cast<double>(static_cast<int64_t>(value))) {
    throw UsageError{std::string(option) + " wants a whole number from " + std::to_string(static_cast<int64_t>(low)) +
                     " to " + std::to_string(static_cast<int64_t>(high)) + ", not '" + args.text(option) + "'"};
  }
  return value;
}

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
  const auto pipes = static_cast<int64_t>(wholeNumber(args, "--pipes", 1000, kFewest, kMost));
  const auto seed = static_cast<uint64_t>(wholeNumber(args, "--seed", 1, 0, 9007199254740991.0));
  Progress progress("sample");
  const Network town = makeTown(pipes, seed, progress);
  const std::string base = args.positional[0] + "/town";
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
           {"--seed", "S", "another town for another whole number (1)"}},
          run};
}

}  // namespace host
