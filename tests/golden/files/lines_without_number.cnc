%
    N` G`   X `    Z `  F`  H 
    00 91
    n1 90
    02M30
   M
