// What esbuild puts in place of the file.
declare module "*.txt" {
  const text: string;
  export default text;
}
