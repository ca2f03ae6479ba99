#include "dgGLContext.h"

#include <utility>

dgGLContext::~dgGLContext() = default;

namespace
{
class AdoptedContext : public dgGLContext
{
public:
    explicit AdoptedContext(std::function<int()> make_current) : the_make_current(std::move(make_current)) {}

    int make_current() override { return !the_make_current || the_make_current(); }
    void done() override {}
    int shared() const override { return 1; }
    std::string name() const override { return "adopted"; }

private:
    std::function<int()> the_make_current;
};
}

std::unique_ptr<dgGLContext> dgGLContext::adopt(std::function<int()> make_current, std::string& error)
{
    error.clear();
    auto context = std::make_unique<AdoptedContext>(std::move(make_current));
    if (context->make_current())
        return context;
    error = "adopted: the context cannot be made current";
    return nullptr;
}
