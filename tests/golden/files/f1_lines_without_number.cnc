%
    N` G`  X  `  Y `   Z ` F  
    00 91
    n1 90
    02M30
   M
