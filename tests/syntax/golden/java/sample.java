package demo;

/** A counter. */
public class Counter {
    private int count = 0; // current value
    public synchronized void add(int n) throws IllegalStateException {
        if (n < 0) throw new IllegalStateException("negative: " + n);
        count += n;
    }
    public static void main(String[] args) { System.out.println('c'); }
}
