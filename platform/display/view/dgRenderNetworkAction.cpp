#include "dgRenderNetworkAction.h"

dgRenderNetworkAction::~dgRenderNetworkAction() = default;
