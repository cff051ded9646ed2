// The little of Node that node.ts needs, so that no package of its types has to be there.
declare module "node:fs" {
  export function readFileSync(path: string): Uint8Array;
}
declare module "node:path" {
  export function join(...parts: string[]): string;
}
declare const __dirname: string;
