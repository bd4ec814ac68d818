// Types first
interface Point { x: number; y: number }
type Pair = [Point, Point];
export function length(p: Pair): number {
  const dx = p[1].x - p[0].x; /* delta */
  return Math.sqrt(dx * dx) as number;
}
let label: string = "len: " + length([{ x: 0, y: 0 }, { x: 3, y: 4 }]);
