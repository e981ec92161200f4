// Removes from core.js, which the compiler writes, what the package does not use: it always compiles the module itself,
// so nothing there fetches files, and the renderer asks OpenGL for few values. A part that another version of the
// compiler writes differently is kept.

const unused = [
  /var read_,readAsync.*?(?=var out=)/, // reads files next to the script
  /var dataURIPrefix.*?(?=function createWasm\(\))/, // fetches the module
  /function receiveInstantiationResult.*?(?=if\(Module\["instantiateWasm"\]\))/,
  /else if\(pname==35719\).*?(?=else\{HEAP32\[p>>2\]=GLctx\.getProgramParameter)/, // lengths of names in programs
  /else if\(pname==35720\)\{.*?\}(?=else\{HEAP32\[p>>2\]=GLctx\.getShaderParameter)/, // lengths of sources of shaders
  /createContext:function\(canvas.*?\},(?=registerContext:)/, // the package makes contexts itself
  /case 36346:ret=1;break;case 36344:.*?(?=case 33309:)/, // values that WebGL does not have
  /case 7939:var exts=[^;]*;exts=exts\.concat\([^;]*;ret=stringToNewUTF8\(exts\.join\(" "\)\);break;/, // all extensions
  /case 35724:var glslVersion=.*?ret=stringToNewUTF8\(glslVersion\);break(?=\})/, // the version of GLSL
  /case"object":if\(result===null\)\{switch\(name_\).*?ret=result\.name\|0\}break(?=\}\}switch\(type\))/, // values that are no numbers
];
const callInTry = /if\(Module\["instantiateWasm"\]\)\{try.*?return\{\}\}/;
const begin = 'Module["asm"]=exports;';
const wrapper =
  /var (\w+)=Module\["\1"\]=function\(\)\{return\(\1=Module\["\1"\]=Module\["asm"\]\["([\w$]+)"\]\)\.apply\(null,arguments\)\};/g;

/** Returns the code without these parts. */
export function trimmedGlue(code) {
  for (const part of unused) code = code.replace(part, "");
  code = code.replace(callInTry, 'return Module["instantiateWasm"](info,receiveInstance)}');
  if (!code.includes(begin)) return code;
  // Instead of a function for each export that finds it at the first call.
  const found = [];
  code = code.replace(wrapper, (_, name, key) => {
    found.push(`Module["${name}"]=${name}=exports["${key}"];`);
    return `var ${name};`;
  });
  return code.replace(begin, () => begin + found.join(""));
}
