// Sum of squares
/* block
   comment */
fn sum(xs: &[i64]) -> i64 {
    let mut s = 0i64;
    for x in xs { s += x * x; }
    s
}
fn main() { println!("{}", sum(&[1, 2, 3])); }
