// The functions of PageFunctions.hpp. The page makes the context; its code is in web/src/platform/surfaces.ts.
mergeInto(LibraryManager.library, {
  orivantaOpenContext__deps: ['$GL'],
  orivantaOpenContext: function(canvas) {
    var context = Module["platform"]["surfaces"]["contextOf"](canvas);
    if (!context) return 0;
    var handle = GL.registerContext(context, {majorVersion: 2, minorVersion: 0, enableExtensionsByDefault: 0});
    GL.makeContextCurrent(handle);
    return handle;
  },
  orivantaUseContext__deps: ['$GL'],
  orivantaUseContext: function(context) {
    GL.makeContextCurrent(context);
  },
  orivantaCloseContext__deps: ['$GL'],
  orivantaCloseContext: function(context) {
    GL.makeContextCurrent(0);
    GL.deleteContext(context);
  },
});
