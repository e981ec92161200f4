// The functions that the page defines for canvases, in PageFunctions.js.
#pragma once

extern "C" {

/// Makes the WebGL 2 context of a canvas current. Returns its handle, which is above 0, or 0 if the
/// browser has none. `canvas` is a number of the page.
int orivantaOpenContext(int canvas);

/// Makes a context current again.
void orivantaUseContext(int context);

/// Releases a context, after which its handle is invalid. No context is current afterwards.
void orivantaCloseContext(int context);
}
