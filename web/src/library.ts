// The values library as a WebAssembly module, and the room in its memory through which arrays go.
// What the functions do is told in include/zenithor/values.h.

type Call = (...numbers: number[]) => number;

/** The module's functions that the package calls, by their C names without "Zenithor". */
const NAMES = [
  "Value", "Values", "Table", "DirectedCrossings", "DirectedStations", "DirectedAspects",
  "EventsOfKinds", "Daily", "ClockToDynamical", "DynamicalToClock", "Version", "DataFingerprint",
  "FieldUnit", "FieldPeriod", "HasField", "KindName", "Message",
] as const;

export type Library = Record<(typeof NAMES)[number], Call>;

/** The days between which events and searches are answered: the years -2000 to 4000. */
export const FIRST_DAY = 990557.5;
export const LAST_DAY = 3182029.5;

export let library: Library;

/** The room as doubles and as 32-bit integers, and its address in the module. The module's memory
 * never grows, so the views last. */
export let doubles: Float64Array;
export let integers: Int32Array;
export let room = 0;

let bytes: Uint8Array;

/** The version of the library, which is the package's. */
export let version = "";

/** SHA-256 of the data inside, 64 hexadecimal digits. */
export let dataFingerprint = "";

/** Takes the module into use; it imports nothing. */
export function open(module: WebAssembly.Module): void {
  const exported = new WebAssembly.Instance(module, {}).exports as unknown as Record<string, Call>;
  const { buffer } = exported.memory as unknown as WebAssembly.Memory;
  exported._initialize!();
  room = exported.ZenithorRoom!();
  const size = exported.ZenithorRoomBytes!();
  doubles = new Float64Array(buffer, room, size / 8);
  integers = new Int32Array(buffer, room, size / 4);
  bytes = new Uint8Array(buffer);
  const functions: Partial<Library> = {};
  for (const name of NAMES) {
    functions[name] = exported["Zenithor" + name]!;
  }
  library = functions as Library;
  version = text(library.Version())!;
  dataFingerprint = text(library.DataFingerprint())!;
}

/** A text of the library; `null` where there is none. */
export function text(address: number): string | null {
  if (address === 0) {
    return null;
  }
  let answer = "";
  for (let k = address; bytes[k] !== 0; ++k) {
    answer += String.fromCharCode(bytes[k]!);
  }
  return answer;
}

/** The count that a function answered with; a `RangeError` for one of its error codes. */
export function checked(answer: number, question: string): number {
  if (answer < 0) {
    throw new RangeError(`${question}: ${text(library.Message(answer))}`);
  }
  return answer;
}
