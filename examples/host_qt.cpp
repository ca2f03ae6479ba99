// Turns a tarn file with the mouse in a Qt widget: host_qt part.tarn
#include "dgClientStructure.h"
#include "dgGLHostArea.h"
#include "dgRef.h"
#include "dgView.h"
#include "grCanvas.h"
#include "grStdTwiddling.h"
#include "grTwiddleMan.h"
#include "grViewOperations.h"
#include "gr_read_tarn_tblock.h"
#include "gwQtWidget.h"
#include "gwResourceDB.h"

#include <QApplication>

#include <fstream>
#include <iostream>
#include <optional>

int main(int argc, char** argv)
{
    gwQtWidget::prepare();
    const QApplication application(argc, argv);
    std::ifstream file(argc > 1 ? argv[1] : "part.tarn");
    const dgRef<dgClientStructure> part(new dgClientStructure());
    if (!gr_read_tarn_tblock(file, part.get()))
        return std::cerr << "host_qt: no triangle blocks could be read\n", 1;

    // What draws on the widget's area is made when that is there, and ends before it.
    gwQtWidget widget;
    gwResourceDB settings;
    settings.set_resource("translations", "mouse_button 1 : trackball mouse_button 2 : pan mouse_button 3 : zoom "
                                          "qwerty_key 82 : reset");
    std::optional<grCanvas> canvas;
    std::optional<grStdTwiddling> twiddling;
    widget.started_callback(
        [&](dgGLHostArea& area)
        {
            canvas.emplace(area.main_window(), area.overlay_window(), &area, &settings);
            dgView& view = canvas->add_view();
            view.root(part.get());
            view.view_bbox();
            twiddling.emplace(&area.input(), &settings, nullptr, nullptr);
            area.idle_callback([&] { return twiddling->twiddle_man()->idle() != grIDLE_DONE; });
            area.resize_callback([&] { canvas->resize(area.width(), area.height()); });
            canvas->redraw();
        });
    widget.pan_callback(
        [&](double right, double up)
        {
            grViewOperations::pan(canvas->view(0), giVector2(right, up));
            canvas->redraw();
        });
    widget.setWindowTitle("host_qt");
    widget.resize(800, 600);
    widget.show();
    return QApplication::exec();
}
