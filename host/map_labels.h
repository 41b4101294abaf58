/** Labels with room: those of the open model are switched on where they stand on nothing else. */
#ifndef PN10_HOST_MAP_LABELS_H
#define PN10_HOST_MAP_LABELS_H

#include "map_view.h"
#include "map_window.h"

namespace host {

/**
 * Switches the labels of records on and off in memory, so that none stands on another, on a device or on a meter; the
 * model is not saved. Text is `em` pixels high, devices are `deviceSize` pixels long.
 */
void giveRoomToLabels(const MapOptions& o, const Mapping& map, double em, double deviceSize);

}  // namespace host

#endif
