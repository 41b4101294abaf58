/** Nodes and pipes by what they are called: names, link identifiers, ids. */
#include <cstring>

#include "model/wait_cursor.h"
#include "search/plane.h"
#include "search/text_match.h"

using namespace pn10;

int32_t FindNodeByName(const char* upperName, int32_t nameLength, int32_t startNode, int16_t partial) {
  const WaitCursor wait;
  const TextMatch name(upperName, nameLength, partial != 0);
  return scanWrapped(startNode, nodeTop(), [&](int32_t n) {
    const Ndt& node = model.ndt[n];
    return name.matches(node.NODENAME, sizeof node.NODENAME) && node.REC_STATUS >= 0;
  });
}

int32_t FindPipeByLinkID(const char* upperText, int32_t startPipe, int16_t partial) {
  const WaitCursor wait;
  const char* text = upperText ? upperText : "";
  char trimmed[128];
  const int32_t length = trimmedField(text, sizeof trimmed - 1);
  // The comparison is over the trimmed length; a partial search looks for the text as it stands.
  std::memcpy(trimmed, text, static_cast<size_t>(length));
  trimmed[length] = 0;
  const TextMatch link(partial ? text : trimmed, length, partial != 0);
  return scanWrapped(startPipe, pipeTop(), [&](int32_t p) {
    const Pdt& pipe = pipeAt(p);
    return link.matches(pipe.LINK_ID, sizeof pipe.LINK_ID) && pipe.REC_STATUS >= 0;
  });
}

int32_t FindPipeByID(int32_t id) {
  const WaitCursor wait;
  for (int32_t p = 1, top = pipeTop(); p <= top; p++) {
    if (pipeAt(p).ID == id && pipeAt(p).REC_STATUS >= 0) return p;
  }
  return 0;
}

int32_t FindPipeByNodeName(const char* nodeName1, const char* nodeName2) {
  const WaitCursor wait;
  const char* name1 = nodeName1 ? nodeName1 : "";
  const char* name2 = nodeName2 ? nodeName2 : "";
  const auto carries = [](int32_t node, const char* name) { return std::strcmp(nodeAt(node).NODENAME, name) == 0; };
  for (int32_t p = 1, top = pipeTop(); p <= top; p++) {
    const Pdt& pipe = pipeAt(p);
    const bool joins = (carries(pipe.FROM_NODE, name1) && carries(pipe.TO_NODE, name2)) ||
                       (carries(pipe.FROM_NODE, name2) && carries(pipe.TO_NODE, name1));
    if (joins && pipe.REC_STATUS >= 0) return p;
  }
  return 0;
}
