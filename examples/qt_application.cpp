// A Qt application around two views: docks, a tool bar, and a tree of the model's parts that are selected there and in
// the views: qt_application part.tarn. The left button turns when it is dragged and selects when it is clicked, with
// control more than one part; with shift it zooms to a box.
#include "dgClientStructure.h"
#include "dgGLHostArea.h"
#include "dgRef.h"
#include "dgTriangleBlock.h"
#include "dgView.h"
#include "grCanvas.h"
#include "grSelection.h"
#include "grStdTwiddleHooks.h"
#include "grStdTwiddling.h"
#include "grTwiddleMan.h"
#include "grViewOperations.h"
#include "gr_read_tarn_tblock.h"
#include "gwQtWidget.h"
#include "gwResourceDB.h"

#include <QApplication>
#include <QDockWidget>
#include <QFileInfo>
#include <QMainWindow>
#include <QSignalBlocker>
#include <QToolBar>
#include <QTreeWidget>

#include <fstream>
#include <iostream>
#include <optional>

namespace
{
// A widget with one view of the part. What draws on its area is made when that is there, and ends before the widget.
struct ViewWidget
{
    ViewWidget(dgStructure* root, grSelection& selection) : hooks(&settings)
    {
        settings.set_resource("translations", "<shift> mouse_button 1 : zoom_box mouse_button 1 : trackball "
                                              "mouse_button 2 : pan mouse_button 3 : zoom "
                                              "<control> mouse_click 1 : select (toggle) mouse_click 1 : select");
        hooks.selection(&selection);
        widget.setMinimumSize(250, 250);
        widget.started_callback(
            [this, root, &selection](dgGLHostArea& area)
            {
                canvas.emplace(area.main_window(), area.overlay_window(), &area, &settings);
                dgView& view = canvas->add_view();
                view.root(root);
                view.shading_context().graduated_background = 1;
                grViewOperations::isometric(view);
                selection.add_view(&view);
                twiddling.emplace(&area.input(), &settings, &hooks, nullptr);
                area.idle_callback([this] { return twiddling->twiddle_man()->idle() != grIDLE_DONE; });
                area.resize_callback([this, &area] { canvas->resize(area.width(), area.height()); });
                canvas->redraw();
            });
    }

    gwQtWidget widget;
    gwResourceDB settings;
    grStdTwiddleHooks hooks;
    std::optional<grCanvas> canvas;
    std::optional<grStdTwiddling> twiddling;
};

// A part is named by its path from the root, which is here its element alone.
dgElementPath path_of(QTreeWidgetItem* item, const dgStructure& root)
{
    return {dgRef<dgGraphicalElement>(root.element(item->parent()->indexOfChild(item)))};
}
}

int main(int argc, char** argv)
{
    gwQtWidget::prepare();
    const QApplication application(argc, argv);
    const char* const name = argc > 1 ? argv[1] : "part.tarn";
    std::ifstream file(name);
    const dgRef<dgClientStructure> part(new dgClientStructure());
    if (!gr_read_tarn_tblock(file, part.get()))
        return std::cerr << "qt_application: no triangle blocks could be read\n", 1;

    // What holds others is made before them, and ends after them.
    QMainWindow window;
    QDockWidget views_dock("Second view"), tree_dock("Parts");
    QTreeWidget tree;
    tree.setHeaderLabels({"Part", "Triangles"});
    tree.setSelectionMode(QAbstractItemView::ExtendedSelection);
    auto* const model = new QTreeWidgetItem(&tree, {QFileInfo(name).fileName()});
    for (int i = 0; i < part->nelements(); ++i)
    {
        const auto* const block = static_cast<const dgTriangleBlock*>(part->element(i));
        new QTreeWidgetItem(model, {QString("Block %1").arg(i + 1), QString::number(block->triangle_count())});
    }
    tree.expandAll();

    grSelection selection;
    ViewWidget first(part.get(), selection), second(part.get(), selection);
    selection.changed_callback(
        [&](grSelection& now)
        {
            const QSignalBlocker quiet(&tree);
            for (int i = 0; i < model->childCount(); ++i)
                model->child(i)->setSelected(now.is_selected(path_of(model->child(i), *part)));
            first.widget.wake();
            second.widget.wake();
        });
    QObject::connect(&tree, &QTreeWidget::itemSelectionChanged,
                     [&]
                     {
                         std::vector<dgElementPath> parts;
                         for (QTreeWidgetItem* item : tree.selectedItems())
                             if (item != model)
                                 parts.push_back(path_of(item, *part));
                         selection.select(parts);
                     });

    QToolBar* const bar = window.addToolBar("View");
    const auto add = [&](const char* text, auto operation)
    {
        bar->addAction(text,
                       [&first, operation]
                       {
                           if (!first.canvas)
                               return; // there is no OpenGL for it
                           operation(first.canvas->view(0));
                           first.canvas->redraw();
                           first.widget.wake();
                       });
    };
    add("Fit", grViewOperations::fit);
    add("Reset", grViewOperations::reset);
    add("Isometric", grViewOperations::isometric);

    views_dock.setWidget(&second.widget);
    tree_dock.setWidget(&tree);
    window.setCentralWidget(&first.widget);
    window.addDockWidget(Qt::RightDockWidgetArea, &views_dock);
    window.addDockWidget(Qt::LeftDockWidgetArea, &tree_dock);
    window.setWindowTitle("qt_application");
    window.resize(1000, 600);
    window.show();
    return QApplication::exec();
}
