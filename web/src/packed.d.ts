// What esbuild puts in place of the file.
declare module "*.gz" {
  const bytes: Uint8Array;
  export default bytes;
}
