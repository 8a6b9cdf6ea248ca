#pragma once

class VYRPrtTextElt;

// A box for a text element before any typeface is at hand: from the
// baseline up one text height, and an average advance of 0.55 of the height
// per character placed by the anchor. Gradients, masks and filters in
// box units use it. False for a text without position or characters.
bool VYRGetTextBounds(const VYRPrtTextElt& i_text, double& o_xmin, double& o_xmax, double& o_ymin, double& o_ymax);
