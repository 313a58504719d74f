// The module of WebAssembly, deflated and in base64, as the bundler lays it into the text.
declare module "*.deflate" {
    const text: string;
    export default text;
}
