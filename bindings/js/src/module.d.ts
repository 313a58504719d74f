// The module of WebAssembly, deflated, as the bundler lays it into the text.
declare module "*.deflate" {
    const bytes: Uint8Array;
    export default bytes;
}
