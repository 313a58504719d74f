// What is longer than its box: how far it is scrolled, and the bar that tells it.
#pragma once

#include "screen/live.h"

namespace kit {

/// The direction in which a node scrolls.
Axis scroll_axis(const Node& node);

/// Tells nodes how far they are scrolled; whether they have to be laid out for that.
bool set_scrolled(Nodes& nodes, const Live& live);
/// Keeps that within bounds, once they are laid out, and forgets what is gone.
void keep_scrolled(Nodes& nodes, Live& live);

/// Scrolls a node to a place, as far as it goes; whether that is another one.
bool scroll_to(Live& live, const Node& node, long long offset);
/// Forgets how far a node was scrolled.
void forget_scrolled(Live& live, Tag tag);
/// How far a node that is not built yet was scrolled.
int scrolled_of(const Live& live, Tag tag, int otherwise);

/// The bar's moving part; empty where there is nothing to scroll.
kit_box thumb_of(const Node& node);
/// Where a press takes hold of the bar.
bool is_on_bar(const Node& node, int x, int y);
/// Scrolls so that the middle of the bar's moving part is @p place along it, less what was grabbed.
void drag_bar(Live& live, const Node& node, int place, int grab);
/// From the middle of the bar's moving part to a place on it; 0 for one beside that.
int grab_of(const Node& node, int place);

/// Scrolls all that a node lies in until it shows.
void reveal(const Nodes& nodes, Live& live, int i);

}  // namespace kit
