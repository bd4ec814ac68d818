// Event handling
/* block
   comment */
const items = [1, 2.5, 0xff];
function total(list) {
  let sum = 0;
  for (const x of list) { sum += x; }
  return sum > 10 ? "big" : 'small';
}
export default { total, items };
