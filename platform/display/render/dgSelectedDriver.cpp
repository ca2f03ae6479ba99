#include "dgSelectedDriver.h"

#include "dgRenderer.h"

dgSelectedDriver::dgSelectedDriver(dgRenderer& renderer, int index)
    : the_renderer(&renderer), the_before(renderer.current_driver_index()), the_outer(renderer.the_selected_drivers)
{
    renderer.the_selected_drivers = this;
    renderer.select_driver(index);
}

dgSelectedDriver::~dgSelectedDriver()
{
    if (!the_renderer)
        return;
    the_renderer->the_selected_drivers = the_outer;
    the_renderer->select_driver(the_before);
}
