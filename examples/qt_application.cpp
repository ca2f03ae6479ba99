// A Qt application around two views: a tool bar, docks, a list of the model's blocks: qt_application part.tarn
#include "dgClientStructure.h"
#include "dgGLHostArea.h"
#include "dgGraphicalElement.h"
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
#include <QDockWidget>
#include <QListWidget>
#include <QMainWindow>
#include <QToolBar>

#include <fstream>
#include <iostream>
#include <optional>

namespace
{
// A widget with one view of the part. Everything that draws on the widget's area is made when that is there, and ends
// before the widget.
struct ViewWidget
{
    explicit ViewWidget(dgStructure* root)
    {
        widget.started_callback(
            [this, root](dgGLHostArea& area)
            {
                canvas.emplace(area.main_window(), area.overlay_window(), &area, &settings);
                dgView& view = canvas->add_view();
                view.root(root);
                view.view_bbox();
                settings.set_resource("translations", "<shift> mouse_button 1 : zoom_box mouse_button 1 : trackball "
                                                      "mouse_button 2 : pan mouse_button 3 : zoom");
                twiddling.emplace(&area.input(), &settings, nullptr, nullptr);
                area.idle_callback([this] { return twiddling->twiddle_man()->idle() != grIDLE_DONE; });
                area.resize_callback([this, &area] { canvas->resize(area.width(), area.height()); });
                canvas->redraw();
            });
    }

    gwQtWidget widget;
    gwResourceDB settings;
    std::optional<grCanvas> canvas;
    std::optional<grStdTwiddling> twiddling;
};
}

int main(int argc, char** argv)
{
    gwQtWidget::prepare();
    QApplication application(argc, argv);
    std::ifstream file(argc > 1 ? argv[1] : "part.tarn");
    const dgRef<dgClientStructure> part(new dgClientStructure());
    if (!gr_read_tarn_tblock(file, part.get()))
        return std::cerr << "qt_application: no triangle blocks could be read\n", 1;

    QMainWindow window;
    QListWidget blocks;
    for (int i = 0; i < part->nelements(); ++i)
        blocks.addItem(QString("%1 %2").arg(part->element(i)->ut_dynamic_type().name()).arg(i));
    ViewWidget first(part.get()), second(part.get());
    window.setCentralWidget(&first.widget);
    QDockWidget views_dock("Second view"), blocks_dock("Blocks");
    views_dock.setWidget(&second.widget);
    blocks_dock.setWidget(&blocks);
    window.addDockWidget(Qt::RightDockWidgetArea, &views_dock);
    window.addDockWidget(Qt::LeftDockWidgetArea, &blocks_dock);
    second.widget.setMinimumSize(250, 250);

    QToolBar* const bar = window.addToolBar("View");
    const auto add = [&](const char* name, auto operation)
    {
        bar->addAction(name,
                       [&first, operation]
                       {
                           operation(first.canvas->view(0));
                           first.canvas->redraw();
                           first.widget.wake();
                       });
    };
    add("Fit", grViewOperations::fit);
    add("Reset", grViewOperations::reset);
    add("Isometric", grViewOperations::isometric);
    window.resize(1000, 600);
    window.show();
    return application.exec();
}
