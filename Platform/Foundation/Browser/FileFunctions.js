// What the C library asks of a file system, without that of emscripten, which is ten times as large. Linked with
// --js-library. The code is in web/src/platform/files.ts.
mergeInto(LibraryManager.library, {
  __syscall_open__deps: [],
  __syscall_open: function(path, flags) {
    return Module["platform"]["files"]["open"](HEAPU8, path, flags);
  },
  __syscall_stat64__deps: [],
  __syscall_stat64: function(path, target) {
    return Module["platform"]["files"]["status"](HEAPU8, path, target);
  },
  __syscall_lstat64__deps: [],
  __syscall_lstat64: function(path, target) {
    return Module["platform"]["files"]["status"](HEAPU8, path, target);
  },
  // The folder is always that of a process, the root.
  __syscall_fstatat64__deps: [],
  __syscall_fstatat64: function(folder, path, target) {
    return Module["platform"]["files"]["status"](HEAPU8, path, target);
  },
  __syscall_fstat64__deps: [],
  __syscall_fstat64: function(number, target) {
    return Module["platform"]["files"]["streamStatus"](HEAPU8, number, target);
  },
  __syscall_getcwd__deps: [],
  __syscall_getcwd: function(target, room) {
    if (room < 2) return -68;
    HEAPU8[target] = 47;
    HEAPU8[target + 1] = 0;
    return target;
  },
  __syscall_getdents64__deps: [],
  __syscall_getdents64: function(number, target, room) {
    return Module["platform"]["files"]["entries"](HEAPU8, number, target, room);
  },
  __syscall_mkdir__deps: [],
  __syscall_mkdir: function(path) {
    return Module["platform"]["files"]["makeFolder"](HEAPU8, path);
  },
  __syscall_rmdir__deps: [],
  __syscall_rmdir: function(path) {
    return Module["platform"]["files"]["remove"](HEAPU8, path, true);
  },
  __syscall_unlink__deps: [],
  __syscall_unlink: function(path) {
    return Module["platform"]["files"]["remove"](HEAPU8, path, false);
  },
  __syscall_rename__deps: [],
  __syscall_rename: function(from, to) {
    return Module["platform"]["files"]["rename"](HEAPU8, from, to);
  },
  fd_close__deps: [],
  fd_close: function(number) {
    return Module["platform"]["files"]["fdClose"](number);
  },
  fd_read__deps: [],
  fd_read: function(number, pieces, count, target) {
    return Module["platform"]["files"]["fdRead"](HEAPU8, number, pieces, count, target);
  },
  fd_write__deps: [],
  fd_write__postset: '',
  fd_write: function(number, pieces, count, target) {
    return Module["platform"]["files"]["fdWrite"](HEAPU8, number, pieces, count, target);
  },
  fd_seek__deps: [],
  fd_seek: function(number, low, high, origin, target) {
    return Module["platform"]["files"]["fdSeek"](HEAPU8, number, high * 4294967296 + (low >>> 0), origin, target);
  },
  fd_sync__deps: [],
  fd_sync: function() {
    return 0;
  },
});
