#pragma once

#include <iosfwd>
#include <string>

class dgCamera;
class dgRenderer;
class vwModel;
struct vwOptions;

/// Prints the font families that the options' paths and font list, and the operating system, offer: one a line, with
/// kind, styles and name. Answers 1, or 0 with error set.
int vw_list_fonts(const vwOptions& options, std::ostream& os, std::string& error);

/// Installs the font that the options name in a renderer, or one that is there when they name none, and lays their text
/// in front of the model, in its xy plane; without a model, so that it faces the camera. Answers 1, or 0 with error set
/// and the model as it was.
int vw_add_text(const vwOptions& options, dgRenderer& renderer, const dgCamera& camera, vwModel& model,
                std::string& error);
