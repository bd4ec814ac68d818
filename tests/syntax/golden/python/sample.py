# A short module
import sys

def greet(name, count=3):
    """Say hello."""
    for i in range(count):
        print('hello %s' % name, i * 2.5)  # inline
    return None

if __name__ == "__main__":
    greet(sys.argv[1] if len(sys.argv) > 1 else "world")
