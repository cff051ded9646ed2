// Labels round a circle, moved apart where they would lie on one another.

/** Angles [deg] at least `gap` apart, each as near to its own as the others let it, in the order of
 * the given. Beyond 360 / gap angles they are spread evenly. */
export function spread(angles: readonly number[], gap: number): number[] {
  const count = angles.length;
  if (count < 2) {
    return angles.slice();
  }
  const room = Math.min(gap, 360 / count);
  const order = angles.map((_, k) => k).sort((a, b) => angles[a]! - angles[b]!);
  // The circle is cut at its widest gap and laid out as a line, on which neighbours that are too near
  // form a block; a block lies where its members' mean is, and takes in those it touches.
  let cut = 0;
  let widest = -1;
  for (let k = 0; k < count; ++k) {
    const before = angles[order[(k + count - 1) % count]!]!;
    const width = angles[order[k]!]! - before + (k === 0 ? 360 : 0);
    if (width > widest) {
      [widest, cut] = [width, k];
    }
  }
  const line = Array.from({ length: count }, (_, k) => order[(cut + k) % count]!);
  const first = angles[line[0]!]!;
  const blocks: { sum: number; size: number }[] = [];
  line.forEach((index, k) => {
    // Each less its place in the row, so that a block's members all want the same number.
    const along = (angles[index]! - first + 360) % 360;
    let block = { sum: along - k * room, size: 1 };
    for (let last = blocks.at(-1); last && last.sum / last.size >= block.sum / block.size; last = blocks.at(-1)) {
      block = { sum: block.sum + last.sum, size: block.size + last.size };
      blocks.pop();
    }
    blocks.push(block);
  });
  const answer = new Array<number>(count);
  let k = 0;
  for (const { sum, size } of blocks) {
    for (let member = 0; member < size; ++member, ++k) {
      answer[line[k]!] = (((first + sum / size + k * room) % 360) + 360) % 360;
    }
  }
  return answer;
}
