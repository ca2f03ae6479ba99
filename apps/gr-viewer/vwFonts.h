#pragma once

#include <iosfwd>
#include <string>

class dgCamera;
class dgRenderer;
class dgStructure;
class vwModel;
class vwScene;
struct vwOptions;

/// Prints the font families that the options' paths and font list, and the operating system, offer: one a line, with
/// kind, styles and name. Answers 1, or 0 with error set.
int vw_list_fonts(const vwOptions& options, std::ostream& os, std::string& error);

/// Installs the font family that the options name in a renderer, or one that is there when they name none. Answers the
/// slot of its regular face, or the first one that it has, or -1 with error set.
int vw_install_font(const vwOptions& options, dgRenderer& renderer, std::string& error);

/// Lays the options' text, in the font of a slot of the renderer, in front of a model, in its xy plane; without a
/// model, so that it faces the camera.
void vw_lay_text(const vwOptions& options, const dgRenderer& renderer, int slot, const dgCamera& camera,
                 dgStructure& root);

/// Has the scene's overlay install a font, as the options say, when it first needs one.
void vw_offer_font(const vwOptions& options, vwScene& scene);

/// Installs a font where the options ask for text, for frame times or for a sheet, and gives it to the scene for the
/// numbers of the frame times, the title of the sheet and the text. Answers 1, or 0 with error set and the model as it
/// was; numbers alone are left out with a warning where there is no font.
int vw_add_text(const vwOptions& options, vwScene& scene, vwModel& model, std::string& error);
