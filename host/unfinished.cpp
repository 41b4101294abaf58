// Names beside the place that nothing stands under, and the moves at the end.
#include "unfinished.h"

#include <utility>
#include <vector>

#include "args.h"

namespace host {

namespace {

/** A name beside `path` that is free. */
std::string freeName(const std::string& path) {
  std::error_code ignored;
  std::string name = path + ".part";
  for (int i = 2; fs::exists(fs::symlink_status(pathOf(name), ignored)); i++) name = path + ".part" + std::to_string(i);
  return name;
}

}  // namespace

UnfinishedModel::UnfinishedModel(const std::string& base) : target_(pathOf(base)) {
  if (target_.filename().empty()) throw Failure{base + ": a model wants a name, not only a folder"};
  std::error_code error;
  if (target_.has_parent_path()) fs::create_directories(target_.parent_path(), error);
  folder_ = pathOf(freeName(base));
  if (!fs::create_directory(folder_, error)) throw Failure{base + ": " + error.message()};
}

UnfinishedModel::~UnfinishedModel() {
  std::error_code ignored;
  fs::remove_all(folder_, ignored);
}

void UnfinishedModel::moveIntoPlace(const std::initializer_list<const char*>& outdated) {
  std::vector<std::pair<fs::path, fs::path>> moves, done;
  const auto putAside = [&](const fs::path& file) {
    std::error_code ignored;
    if (fs::exists(file, ignored)) moves.emplace_back(file, fs::path(file) += ".bak");
  };
  for (const char* ending : outdated) {
    if (!fs::exists(pathOf(base() + ending))) putAside(fs::path(target_) += ending);
  }
  for (const auto& file : fs::directory_iterator(folder_)) {
    const fs::path place = target_.parent_path() / file.path().filename();
    putAside(place);
    moves.emplace_back(file.path(), place);
  }
  for (const auto& [from, to] : moves) {
    std::error_code error, ignored;
    fs::rename(from, to, error);
    if (error) {
      for (auto move = done.rbegin(); move != done.rend(); ++move) fs::rename(move->second, move->first, ignored);
      throw Failure{nameOf(to) + ": " + error.message()};
    }
    done.emplace_back(from, to);
  }
}

UnfinishedFile::UnfinishedFile(const std::string& path) : target_(path), scratch_(freeName(path)) {}

UnfinishedFile::~UnfinishedFile() {
  std::error_code ignored;
  if (!scratch_.empty()) fs::remove(pathOf(scratch_), ignored);
}

bool UnfinishedFile::moveIntoPlace() {
  std::error_code error;
  fs::rename(pathOf(scratch_), pathOf(target_), error);
  if (!error) scratch_.clear();
  return !error;
}

}  // namespace host
