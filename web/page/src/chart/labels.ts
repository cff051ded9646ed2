// Labels at the ends of lines, moved apart where they would collide.

/** Places of labels of one height in 0 to `room`, near the wanted ones and in their order, that do not
 * overlap; the wanted order is by place. More than there is room for are squeezed evenly. */
export function movedApart(wanted: readonly number[], height: number, room: number): number[] {
  const order = wanted.map((_, k) => k).sort((a, b) => wanted[a]! - wanted[b]! || a - b);
  const half = height / 2;
  const places = new Array<number>(wanted.length).fill(0);
  if (wanted.length * height > room) {
    order.forEach((k, place) => {
      places[k] = ((place + 0.5) * room) / wanted.length;
    });
    return places;
  }
  // Blocks of labels that touch; each lies where the mean of its wishes is (pool adjacent violators:
  // Ayer et al., An empirical distribution function for sampling with incomplete information, 1955).
  const blocks: { centre: number; members: number[] }[] = [];
  const within = (centre: number, count: number) =>
    Math.min(Math.max(centre, count * half), room - count * half);
  for (const k of order) {
    let block = { centre: within(wanted[k]!, 1), members: [k] };
    for (let last = blocks[blocks.length - 1]; last !== undefined; last = blocks[blocks.length - 1]) {
      if (block.centre - last.centre >= (block.members.length + last.members.length) * half) {
        break;
      }
      blocks.pop();
      const members = [...last.members, ...block.members];
      const start = members.reduce((sum, one, place) => sum + wanted[one]! - place * height, 0) / members.length;
      block = { centre: within(start + (members.length - 1) * half, members.length), members };
    }
    blocks.push(block);
  }
  for (const { centre, members } of blocks) {
    members.forEach((k, place) => {
      places[k] = centre + (place - (members.length - 1) / 2) * height;
    });
  }
  return places;
}
