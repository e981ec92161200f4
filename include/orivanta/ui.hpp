// The map view with all that belongs to it, and the data half of the library.
#pragma once

#include <orivanta/orivanta.hpp>

#include "Platform/Foundation/MainQueue.hpp"
#include "Platform/Graphics/ImageFile.hpp"
#include "Platform/Graphics/Text.hpp"
#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Render/Offscreen/OffscreenSurface.hpp"
#include "Platform/Render/Renderer.hpp"
#include "Platform/Scene/Camera.hpp"
#include "Platform/Scene/Geometry.hpp"
#include "Platform/Scene/KeyframeAnimation.hpp"
#include "Platform/Scene/Light.hpp"
#include "Platform/Scene/Material.hpp"
#include "Platform/Scene/Node.hpp"
#include "Platform/Scene/Shapes.hpp"
#include "Platform/View/ImageView.hpp"
#include "Platform/View/TouchDispatcher.hpp"
#include "Source/UI/Display/LabelLayer.hpp"
#include "Source/UI/Display/MapCamera.hpp"
#include "Source/UI/Display/MarkColors.hpp"
#include "Source/UI/Display/RouteOverlay.hpp"
#include "Source/UI/MapView.hpp"
#include "Source/UI/MapViewDirections.hpp"
#include "Source/UI/MapViewMessages.hpp"
#include "Source/UI/MarkerImages.hpp"
