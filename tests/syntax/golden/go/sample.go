package main

import "fmt"

/* entry
   point */
func main() {
	xs := []int{1, 2, 0x3}
	for i, x := range xs { // loop
		fmt.Println(i, x, 'r')
	}
}
