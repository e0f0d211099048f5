%
    N` G`   X `    Z `  F`  H 

   M
