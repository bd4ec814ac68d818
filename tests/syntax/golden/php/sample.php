<?php
// Greeting
# old style comment
/* block
   comment */
function greet($name) {
    $n = 3 + 0x10;
    return "Hello, $name" . 'bye';
}
echo greet("you");
