// What web/build-page.mjs makes of these imports: the address of a file of the page.

declare module "texts:*" {
  const url: string;
  export default url;
}

declare module "orivanta/core.wasm" {
  const url: string;
  export default url;
}

declare module "orivanta/core.data" {
  const url: string;
  export default url;
}

// The text of a file of Examples.
declare module "source:*" {
  const text: string;
  export default text;
}
