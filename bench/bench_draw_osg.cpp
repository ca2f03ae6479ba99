// The same scenes drawn by OpenSceneGraph and by a view, in turns: the whole part of the window, a tenth of its width,
// and a tenth of the part as wide as the window. OpenSceneGraph has one light at the eye, as it has by itself, and
// counts it for each node, views count light for each pixel. Each has a context of its own on the same driver and
// erases, draws and finishes each frame. Compared is processor time, of all threads together; the wall clock's is
// printed beside it.
//
//     bench_draw_osg [frames]
#include "benchRing.h"
#include "benchTiming.h"
#include "dgClientStructure.h"
#include "dgGLContext.h"
#include "dgGLDevice.h"
#include "dgGLWindow.h"
#include "dgImage.h"
#include "dgRenderer.h"
#include "dgStructureCall.h"
#include "dgSurfaceColour.h"
#include "dgTransform.h"
#include "dgTriangleBlock.h"
#include "dgView.h"

#include <epoxy/egl.h>
#include <epoxy/gl.h>
#include <osg/Geometry>
#include <osg/LightModel>
#include <osg/Material>
#include <osg/MatrixTransform>
#include <osgViewer/Viewer>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace
{
constexpr int width = 1024, height = 768;

// A compatibility context with a buffer of its own to draw in, which OpenSceneGraph takes for its window.
class OtherContext
{
public:
    bool create()
    {
        the_display = eglGetPlatformDisplayEXT(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
        if (!eglInitialize(the_display, nullptr, nullptr) || !eglBindAPI(EGL_OPENGL_API))
            return false;
        const EGLint wanted[] = {EGL_SURFACE_TYPE,
                                 EGL_PBUFFER_BIT,
                                 EGL_RENDERABLE_TYPE,
                                 EGL_OPENGL_BIT,
                                 EGL_RED_SIZE,
                                 8,
                                 EGL_GREEN_SIZE,
                                 8,
                                 EGL_BLUE_SIZE,
                                 8,
                                 EGL_DEPTH_SIZE,
                                 24,
                                 EGL_STENCIL_SIZE,
                                 8,
                                 EGL_NONE};
        EGLint count = 0;
        EGLConfig config = nullptr;
        if (!eglChooseConfig(the_display, wanted, &config, 1, &count) || count < 1)
            return false;
        const EGLint size[] = {EGL_WIDTH, width, EGL_HEIGHT, height, EGL_NONE};
        the_surface = eglCreatePbufferSurface(the_display, config, size);
        the_context = eglCreateContext(the_display, config, EGL_NO_CONTEXT, nullptr);
        return make_current();
    }
    bool make_current() const { return eglMakeCurrent(the_display, the_surface, the_surface, the_context); }

private:
    EGLDisplay the_display = EGL_NO_DISPLAY;
    EGLSurface the_surface = EGL_NO_SURFACE;
    EGLContext the_context = EGL_NO_CONTEXT;
};

// A block as it is best kept there: in buffers on the driver's side, drawn by one call.
osg::ref_ptr<osg::Geometry> other_block(const giTriBlock& block)
{
    const osg::ref_ptr<osg::Geometry> geometry(new osg::Geometry);
    const osg::ref_ptr<osg::Vec3Array> nodes(new osg::Vec3Array), normals(new osg::Vec3Array);
    for (int i = 0; i < block.node_count(); ++i)
    {
        const giPoint3& p = block.nodes()[i];
        const giVector3& n = (*block.normals())[static_cast<std::size_t>(i)];
        nodes->push_back(osg::Vec3(p.x(), p.y(), p.z()));
        normals->push_back(osg::Vec3(n.x(), n.y(), n.z()));
    }
    const osg::ref_ptr<osg::DrawElementsUInt> triangles(new osg::DrawElementsUInt(GL_TRIANGLES));
    for (const giTriangle& t : block.triangles())
        for (int corner = 0; corner < 3; ++corner)
            triangles->push_back(static_cast<unsigned>(t[corner]));
    geometry->setUseDisplayList(false);
    geometry->setUseVertexBufferObjects(true);
    geometry->setVertexArray(nodes.get());
    geometry->setNormalArray(normals.get(), osg::Array::BIND_PER_VERTEX);
    geometry->addPrimitiveSet(triangles.get());
    return geometry;
}

struct Scene
{
    dgRef<dgClientStructure> ours{new dgClientStructure};
    osg::ref_ptr<osg::Group> theirs{new osg::Group};

    // Takes the block.
    void add(giTriBlock* block)
    {
        theirs->addChild(other_block(*block).get());
        ours->add(new dgTriangleBlock(block, 1));
    }
    void add(giTriBlock* block, const float (&colour)[3], double z)
    {
        const osg::ref_ptr<osg::MatrixTransform> placed(new osg::MatrixTransform(osg::Matrix::translate(0, 0, z)));
        const osg::ref_ptr<osg::Material> material(new osg::Material);
        material->setDiffuse(osg::Material::FRONT_AND_BACK, osg::Vec4(colour[0], colour[1], colour[2], 1));
        placed->getOrCreateStateSet()->setAttribute(material.get());
        placed->setDataVariance(osg::Object::STATIC);
        placed->addChild(other_block(*block).get());
        theirs->addChild(placed.get());

        const dgRef<dgClientStructure> object(new dgClientStructure);
        object->add(new dgSurfaceColour(gsColour(colour[0], colour[1], colour[2])));
        object->add(new dgTransform(giXform3::translation(giVector3(0, 0, z))));
        object->add(new dgTriangleBlock(block, 1));
        ours->add(new dgStructureCall(object.get()));
    }
};

class Theirs
{
public:
    Theirs(const OtherContext& context, osg::Group* scene) : the_context(context)
    {
        the_context.make_current();
        the_viewer.setThreadingModel(osgViewer::ViewerBase::SingleThreaded);
        the_viewer.setUpViewerAsEmbeddedInWindow(0, 0, width, height);
        the_viewer.getCamera()->setClearColor(osg::Vec4(0, 0, 0, 1));
        // Nothing that is in view is left out, however small.
        the_viewer.getCamera()->setCullingMode(the_viewer.getCamera()->getCullingMode() &
                                               ~osg::CullSettings::SMALL_FEATURE_CULLING);
        the_viewer.getCamera()->setComputeNearFarMode(osg::Camera::DO_NOT_COMPUTE_NEAR_FAR);
        the_viewer.setLightingMode(osg::View::HEADLIGHT);
        const osg::ref_ptr<osg::LightModel> both_sides(new osg::LightModel);
        both_sides->setTwoSided(true);
        scene->getOrCreateStateSet()->setAttribute(both_sides.get());
        the_viewer.setSceneData(scene);
        the_viewer.realize();
    }
    ~Theirs() { the_context.make_current(); } // it releases what it has in the context that is current
    void look(const dgCamera& camera)
    {
        the_viewer.getCamera()->setViewMatrix(osg::Matrix(camera.orientation().data()));
        the_viewer.getCamera()->setProjectionMatrix(osg::Matrix(camera.projection_transform().data()));
    }
    void frame()
    {
        the_viewer.frame();
        glFinish();
    }
    long long pixels_drawn()
    {
        std::vector<unsigned char> rgba(4 * width * height);
        glReadPixels(0, 0, width, height, GL_RGBA, GL_UNSIGNED_BYTE, rgba.data());
        return covered(rgba);
    }
    static long long covered(const std::vector<unsigned char>& rgba)
    {
        long long count = 0;
        for (std::size_t i = 0; i < rgba.size(); i += 4)
            count += rgba[i] + rgba[i + 1] + rgba[i + 2] > 0;
        return count;
    }

private:
    const OtherContext& the_context;
    osgViewer::Viewer the_viewer;
};

struct Ours
{
    Ours(const std::shared_ptr<dgGLDevice>& device, dgStructure* structure)
        : window(device, width, height), renderer(&window, &window), view(&renderer)
    {
        view.root(structure);
        view.camera().orientation(giPoint3(), giVector3(-1, 2, -1.5), giVector3(0, 0, 1));
        view.view_bbox();
    }
    void frame()
    {
        view.erase(dgERASE_ZBUFFER_YES);
        view.render_network(nullptr);
        renderer.finish();
    }
    long long pixels_drawn()
    {
        dgImage image;
        renderer.read_pixels(window.device_box(), image);
        return Theirs::covered(image.rgba);
    }

    dgGLWindow window;
    dgRenderer renderer;
    dgView view;
};

struct Times
{
    std::vector<double> wall, processor;
    template <class Work>
    void add(Work work)
    {
        wall.push_back(seconds([&] { processor.push_back(processor_seconds(work)); }));
    }
};

void compare(const char* name, const std::shared_ptr<dgGLDevice>& device, const OtherContext& context,
             const Scene& scene, int frames)
{
    Ours ours(device, scene.ours.get());
    Theirs theirs(context, scene.theirs.get());
    std::printf("%s\n", name);
    const struct
    {
        const char* name;
        double zoom; // of the look before
    } looks[] = {{"whole", 1}, {"a tenth of the window's width", 10}, {"a tenth of it in the window", 0.01}};
    for (const auto& look : looks)
    {
        ours.view.camera().zoom(look.zoom);
        theirs.look(ours.view.camera());
        Times our_times, their_times;
        for (int i = -2; i < frames; ++i)
        {
            if (i == 0)
                our_times = their_times = Times();
            our_times.add([&] { ours.frame(); });
            context.make_current();
            their_times.add([&] { theirs.frame(); });
        }
        const long long their_pixels = theirs.pixels_drawn(), our_pixels = ours.pixels_drawn();
        std::printf(
            "  %-30s %7.1f ms of processor, OpenSceneGraph %7.1f: ratio %.2f (goal at most 1); wall clock %.1f, "
            "%.1f: %.2f; pixels %lld, %lld\n",
            look.name, 1e3 * median(our_times.processor), 1e3 * median(their_times.processor),
            median(our_times.processor) / median(their_times.processor), 1e3 * median(our_times.wall),
            1e3 * median(their_times.wall), median(our_times.wall) / median(their_times.wall), our_pixels,
            their_pixels);
    }
}
}

int main(int argc, char** argv)
{
    const int frames = argc > 1 ? std::max(3, std::atoi(argv[1])) : 15;
    std::string error;
    const std::shared_ptr<dgGLDevice> device = dgGLDevice::create_off_screen(error);
    OtherContext context;
    if (!device || !context.create())
    {
        std::fprintf(stderr, "bench_draw_osg: %s\n", device ? "no context for OpenSceneGraph" : error.c_str());
        return EXIT_FAILURE;
    }
    std::printf("%s; OpenSceneGraph draws on %s\n", device->name().c_str(),
                (context.make_current(), reinterpret_cast<const char*>(glGetString(GL_VERSION))));
    {
        Scene scene;
        for (int i = 0; i < 10000; ++i)
            scene.add(ring(500, 1000, 5 * (i / 100), 5, 10 * (i % 100), 10));
        compare("10,000 objects of 100 triangles", device, context, scene, frames);
    }
    {
        Scene scene;
        for (int i = 0; i < 10000; ++i)
            scene.add(ring(500, 1000, 5 * (i / 100), 5, 10 * (i % 100), 10),
                      {0.4f + i % 7 * 0.1f, 0.5f + i % 3 * 0.2f, 0.9f - i % 5 * 0.1f}, i % 10);
        compare("10,000 objects of 100 triangles, each with its colour and place", device, context, scene, frames);
    }
    {
        Scene scene;
        scene.add(ring(2000, 1000, 0, 2000, 0, 1000));
        compare("one object of 4,000,000 triangles", device, context, scene, frames);
    }
    return EXIT_SUCCESS;
}
