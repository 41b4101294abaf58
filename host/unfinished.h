/** Files under another name until they are whole, so that a full disk or a failure leaves what stood there before. */
#ifndef PN10_HOST_UNFINISHED_H
#define PN10_HOST_UNFINISHED_H

#include <string>

#include "paths.h"

namespace host {

/** The files of a model, in a folder beside their place. The folder and what is left in it goes with this object. */
class UnfinishedModel {
 public:
  /** Throws Failure when there is no place for the folder. */
  explicit UnfinishedModel(const std::string& base);
  ~UnfinishedModel();
  UnfinishedModel(const UnfinishedModel&) = delete;
  UnfinishedModel& operator=(const UnfinishedModel&) = delete;

  /** The base path to write to. */
  std::string base() const { return nameOf(folder_ / target_.filename()); }
  /**
   * Moves the files to their places; what stood there before stays as .bak, and so does each file of the model before
   * that has one of these endings and no successor. When a move fails, those before it are taken back.
   */
  void moveIntoPlace(const std::initializer_list<const char*>& outdated = {});

 private:
  fs::path target_, folder_;
};

/** One file, made beside its place; removed unless it is moved there. */
class UnfinishedFile {
 public:
  explicit UnfinishedFile(const std::string& path);
  ~UnfinishedFile();
  UnfinishedFile(const UnfinishedFile&) = delete;
  UnfinishedFile& operator=(const UnfinishedFile&) = delete;

  const std::string& path() const { return scratch_; }
  /** False when it can't be moved. */
  bool moveIntoPlace();

 private:
  std::string target_, scratch_;
};

}  // namespace host

#endif
