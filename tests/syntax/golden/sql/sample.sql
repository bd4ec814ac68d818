-- Customers with orders
/* multi
   line */
SELECT c.name, COUNT(o.id) AS orders
FROM customers c LEFT JOIN orders o ON o.customer_id = c.id
WHERE c.name LIKE 'A%' AND o.total > 10.5
GROUP BY c.name ORDER BY orders DESC;
